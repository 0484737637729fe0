#include "shell/ToolbarConfig.h"

#include <QSettings>
#include <optional>
#include <utility>

#include "model/ToolbarItems.h"
#include "platform/XdgDirs.h"

namespace lumivex {

namespace {
const QString kGroup = QStringLiteral("MySampleToolbar");
const QString kShown = QStringLiteral("TB Is Shown");
const QString kItems = QStringLiteral("TB Item Identifiers");
const QString kItem = QStringLiteral("identifier");
}  // namespace

QString ToolbarConfig::DefaultPath() {
    const auto file = XdgDirs::ConfigHome() / "com.ZenmoraWorksJP.LumivexPlus.conf";
    return QString::fromStdString(file.string());
}

ToolbarConfig::ToolbarConfig(QString path) : pPath(std::move(path)) {}

bool ToolbarConfig::Shown() const {
    QSettings settings(pPath, QSettings::IniFormat);
    return settings.value(kGroup + '/' + kShown, 1).toInt() == 1;
}

void ToolbarConfig::SetShown(bool shown) const {
    QSettings settings(pPath, QSettings::IniFormat);
    settings.setValue(kGroup + '/' + kShown, shown ? 1 : 0);
}

std::vector<std::string> ToolbarConfig::Items() const {
    QSettings settings(pPath, QSettings::IniFormat);
    settings.beginGroup(kGroup);
    // The array's size key tells a list saved empty from no list at all.
    std::optional<std::vector<std::string>> saved;
    if (settings.contains(kItems + QStringLiteral("/size"))) {
        saved.emplace();
        const int size = settings.beginReadArray(kItems);
        for (int i = 0; i < size; ++i) {
            settings.setArrayIndex(i);
            saved->push_back(settings.value(kItem).toString().toStdString());
        }
        settings.endArray();
    }
    return ToolbarItems::CleanSavedList(saved);
}

void ToolbarConfig::SetItems(const std::vector<std::string>& items) const {
    QSettings settings(pPath, QSettings::IniFormat);
    settings.beginGroup(kGroup);
    settings.remove(kItems);
    settings.beginWriteArray(kItems, static_cast<int>(items.size()));
    for (int i = 0; i < static_cast<int>(items.size()); ++i) {
        settings.setArrayIndex(i);
        settings.setValue(kItem, QString::fromStdString(items[i]));
    }
    settings.endArray();
}

}  // namespace lumivex
