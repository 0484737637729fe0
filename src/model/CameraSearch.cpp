#include "model/CameraSearch.h"

namespace lumivex {

bool CameraSearch::AutoSelect2(std::string_view name) {
    if (name.size() < 3) return false;
    for (std::size_t i = 0; i < 3; ++i)
        if (name[i] < '0' || name[i] > '9') return false;
    return true;
}

void CameraSearch::Begin(std::uint64_t id, std::vector<std::string> volumes) {
    id_ = id;
    volumes_ = std::move(volumes);
    answers_.assign(volumes_.size(), std::nullopt);
}

std::optional<FolderAnswer> CameraSearch::Take(const FolderAnswer& answer) {
    if (answer.serial != id_) return std::nullopt;
    for (std::size_t i = 0; i < volumes_.size(); ++i)
        if (volumes_[i] == answer.path && !answers_[i]) answers_[i] = answer;
    return Decide();
}

std::optional<FolderAnswer> CameraSearch::Drop(const std::string& volume) {
    for (std::size_t i = 0; i < volumes_.size(); ++i) {
        if (volumes_[i] != volume || answers_[i]) continue;
        answers_[i] = FolderAnswer{};
        answers_[i]->path = volume;
    }
    return Decide();
}

std::optional<FolderAnswer> CameraSearch::Decide() {
    for (const auto& a : answers_) {
        if (!a) return std::nullopt;  // a volume above has not answered yet
        if (a->folder.empty()) continue;
        FolderAnswer won = *a;
        Begin(0, {});  // one selection per search
        return won;
    }
    return std::nullopt;
}

}  // namespace lumivex
