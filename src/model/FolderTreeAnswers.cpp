// The questions the tree puts about its rows and how their answers change it.
#include "core/Globals.h"
#include "model/FolderTree.h"

namespace lumivex {

void FolderTree::Ask(FolderQuestion::Kind kind, const RowRecord& row) {
    FolderQuestion q;
    q.kind = kind;
    q.serial = row.serial;
    q.path = row.path;
    q.round = round_;
    q.lane = LaneOf(row);
    q.options = options_;
    outbox_.push_back(std::move(q));
}

std::string FolderTree::LaneOf(const RowRecord& row) {
    const RowRecord* top = &row;
    while (top->parent != nullptr)
        top = top->parent;
    if (top->vofo != "volume") return std::string();
    // A worker stuck in a pulled card must not hold up the card put back in.
    return top->path + '\n' + std::to_string(top->serial);
}

void FolderTree::AskChildren(RowRecord& item) {
    if (item.children || item.childrenAsked || item.path.empty()) return;
    item.childrenAsked = true;
    Ask(FolderQuestion::Kind::Children, item);
}

void FolderTree::AskCamera() {
    std::vector<std::string> volumes;
    const std::uint64_t id = nextSerial_++;
    for (std::size_t i = 1; i < dataArray_.size(); ++i) {
        const RowRecord& row = *dataArray_[i];
        if (row.vofo != "volume" || row.path.empty()) continue;
        volumes.push_back(row.path);
        Ask(FolderQuestion::Kind::Camera, row);
        outbox_.back().serial = id;
    }
    camera_.Begin(id, std::move(volumes));
}

std::vector<FolderQuestion> FolderTree::TakeQuestions() {
    std::vector<FolderQuestion> out;
    out.swap(outbox_);
    return out;
}

RowRecord* FolderTree::Find(std::uint64_t serial) const {
    const auto it = live_.find(serial);
    return it == live_.end() ? nullptr : it->second;
}

void FolderTree::Forget(const RowRecord& row) {
    live_.erase(row.serial);
    if (row.children)
        for (const auto& child : *row.children)
            Forget(*child);
}

std::optional<FolderTree::CameraRows> FolderTree::Apply(const FolderAnswer& answer, Edits& edits) {
    if (answer.round != round_) return std::nullopt;
    switch (answer.kind) {
        case FolderQuestion::Kind::Marks:
            ApplyMarks(answer, edits);
            break;
        case FolderQuestion::Kind::Children:
            if (RowRecord* row = Find(answer.serial); row != nullptr && !row->children)
                AdoptChildren(*row, answer.folders, edits);
            break;
        case FolderQuestion::Kind::Camera:
            if (const auto won = camera_.Take(answer)) return OpenCamera(*won, edits);
            break;
    }
    return std::nullopt;
}

void FolderTree::ApplyMarks(const FolderAnswer& answer, Edits& edits) {
    RowRecord* row = Find(answer.serial);
    if (row == nullptr) return;
    row->isLeaf = gConvBS(!answer.hasSubFolder, true);
    row->exif = answer.exif;
    row->marked = true;
    edits.Marked(*row);
}

void FolderTree::AdoptChildren(RowRecord& row, const std::vector<ShownFolder>& folders,
                               Edits& edits) {
    Rows rows;
    rows.reserve(folders.size());
    for (const ShownFolder& f : folders)
        AddRowDictionary(rows, "item", "folder", f.path, "", -1, f.alias, &row);
    if (rows.empty()) {
        row.children.emplace();
        return;
    }
    edits.WillAddChildren(row, static_cast<int>(rows.size()));
    row.children = std::move(rows);
    edits.DidAddChildren(row);
}

RowRecord* FolderTree::ChildOfPath(RowRecord& row, const std::string& path) const {
    if (!row.children) return nullptr;
    for (const auto& child : *row.children)
        if (child->path == path) return child.get();
    return nullptr;
}

// The volume and its "DCIM" surely open: the rows the search read are loaded into them
// (unless the user opened them first) and the way to the folder is marked open.
std::optional<FolderTree::CameraRows> FolderTree::OpenCamera(const FolderAnswer& won,
                                                             Edits& edits) {
    const int top = TopIndexOfPath(won.path);
    if (top < 0) return std::nullopt;
    RowRecord* rows[3] = {dataArray_[static_cast<std::size_t>(top)].get(), nullptr, nullptr};
    const std::vector<ShownFolder>* listings[2] = {&won.folders, &won.dcimRows};
    const std::string* paths[2] = {&won.dcim, &won.folder};
    for (int i = 0; i < 2; ++i) {
        RowRecord& open = *rows[i];
        if (open.isLeaf != "false") {
            open.isLeaf = "false";
            edits.Marked(open);
        }
        if (!open.children) AdoptChildren(open, *listings[i], edits);
        rows[i + 1] = ChildOfPath(open, *paths[i]);
        if (rows[i + 1] == nullptr) return std::nullopt;
    }
    return CameraRows{rows[0], rows[1], rows[2]};
}

std::optional<FolderTree::CameraRows> FolderTree::TakeCameraWin(Edits& edits) {
    std::optional<FolderAnswer> won;
    won.swap(cameraWon_);
    return won ? OpenCamera(*won, edits) : std::nullopt;
}

std::optional<FolderTree::CameraRows> FolderTree::Settle(const FolderLister& lister) {
    Edits none;
    std::optional<CameraRows> found;
    for (auto questions = TakeQuestions(); !questions.empty(); questions = TakeQuestions())
        for (const FolderQuestion& q : questions)
            if (auto rows = Apply(FolderAnswer::To(q, lister), none)) found = rows;
    return found;
}

}  // namespace lumivex
