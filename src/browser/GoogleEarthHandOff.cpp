#include "browser/GoogleEarthHandOff.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <utility>

#include "browser/Prompter.h"
#include "core/FileServices.h"
#include "core/KmlPlacemark.h"

namespace lumivex {

GoogleEarthHandOff::GoogleEarthHandOff(Prompter& prompter, QWidget* parent,
                                       GoogleEarthLocator locator)
    : prompter_(prompter), parent_(parent), locator_(std::move(locator)) {}

bool GoogleEarthHandOff::GetGoogleEarth(GoogleEarthSettings& values) {
    if (!values.use) return false;
    const std::filesystem::path found = locator_.Find(values.appPath, values.oldAppPath);
    if (!found.empty()) {
        values.appPath = found.string();
        return true;
    }
    CautionRequest r;
    r.buttons = 2;
    r.action = QStringLiteral("OK");
    r.cancel = QStringLiteral("利用しない");
    r.message = QStringLiteral("Google Earthが見つかりませんでした。");
    r.explanation = QStringLiteral(
        "利用したい場合は環境設定から指定して下さい。利用しない場合は「利用しない」を押して下さい"
        "。");
    // "OK" keeps the permission, so the search and the question come again at the next start.
    if (prompter_.Caution(parent_, r, values.beep) == Prompter::kCancel) values.use = false;
    return false;
}

int GoogleEarthHandOff::GetGoogleEarthChk(const std::string& path) const {
    return locator_.GetGoogleEarthChk(path);
}

void GoogleEarthHandOff::LaunchGEarth(const GoogleEarthSettings& values,
                                      const GpsPosition& position) {
    if (values.appPath.empty()) return;
    switch (GetGoogleEarthChk(values.appPath)) {
        case GoogleEarthLocator::kScript:
            OpenGEarth(values, position);
            break;
        case GoogleEarthLocator::kKml:
            LaunchGEarthPro(values, position);
            break;
        default:
            break;
    }
}

bool GoogleEarthHandOff::LaunchGEarthPro(const GoogleEarthSettings& values,
                                         const GpsPosition& position) {
    const QString file = WritePlacemark(values, position);
    if (file.isEmpty()) return false;
    if (OpenWithDesktop(file)) return true;
    Tell(values, QStringLiteral("KMLファイルを開くアプリケーションが見つかりませんでした。"),
         QStringLiteral("KMLファイルを開くアプリケーションを設定して下さい。"));
    return false;
}

bool GoogleEarthHandOff::OpenGEarth(const GoogleEarthSettings& values,
                                    const GpsPosition& position) {
    const QString program = QString::fromStdString(values.appPath);
    if (values.appPath.empty() || GetGoogleEarthChk(values.appPath) == GoogleEarthLocator::kNone) {
        Tell(values, QStringLiteral("Google Earthが見つかりませんでした。"),
             QStringLiteral("環境設定から指定して下さい。"));
        return false;
    }
    const QString file = WritePlacemark(values, position);
    if (file.isEmpty()) return false;
    // Detached: Google Earth runs until the user quits it, and the browser must not wait.
    if (QProcess::startDetached(program, {file})) return true;
    Tell(values, QStringLiteral("Google Earthを起動できませんでした。"), program);
    return false;
}

bool GoogleEarthHandOff::OpenWithDesktop(const QString& file) {
    // The desktop's handler for KML files, which the Google Earth Pro package registers; a
    // user who chose another map program gets that one. xdg-open is asked directly because
    // it serves every session type alike, and whether it could be started is known at once;
    // Qt's own opener is left for systems without it (a sandbox with a portal).
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!opener.isEmpty()) return QProcess::startDetached(opener, {file});
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

QString GoogleEarthHandOff::WritePlacemark(const GoogleEarthSettings& values,
                                           const GpsPosition& position) {
    const std::filesystem::path folder = kmlFolder.empty() ? gGetTemporalFolder() : kmlFolder;
    const std::time_t now = clock ? clock() : std::time(nullptr);
    const std::string text =
        KmlPlacemark::Text(position.name, position.latitude, position.longitude, values);
    const std::filesystem::path file = KmlPlacemark::Write(folder, text, now);
    if (!file.empty()) return QString::fromStdString(file.string());
    Tell(values, QStringLiteral("Google Earthに渡すファイルを作成できませんでした。"),
         QStringLiteral("一時フォルダに書き込めるか確認して下さい。"));
    return {};
}

void GoogleEarthHandOff::Tell(const GoogleEarthSettings& values, const QString& message,
                              const QString& explanation) {
    prompter_.CautionOk(parent_, message, explanation, values.beep);
}

}  // namespace lumivex
