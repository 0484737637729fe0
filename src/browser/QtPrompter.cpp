#include "browser/QtPrompter.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace lumivex {

int QtPrompter::Caution(QWidget* parent, const CautionRequest& request, bool beep) {
    if (beep) QApplication::beep();
    QMessageBox box(QMessageBox::Warning, QString(), request.message, QMessageBox::NoButton,
                    parent);
    box.setInformativeText(request.explanation);
    if (parent != nullptr) box.setWindowModality(Qt::WindowModal);
    QPushButton* action = box.addButton(request.action, QMessageBox::AcceptRole);
    QPushButton* alternate = nullptr;
    if (request.buttons > 1) box.addButton(request.cancel, QMessageBox::RejectRole);
    if (request.buttons > 2)
        alternate = box.addButton(request.alternate, QMessageBox::DestructiveRole);
    box.setDefaultButton(action);
    box.exec();
    if (box.clickedButton() == action) return kAction;
    if (alternate != nullptr && box.clickedButton() == alternate) return kAlternate;
    return kCancel;
}

void QtPrompter::Message(QWidget* parent, const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QString(), text, QMessageBox::Ok, parent);
    box.exec();
}

std::optional<QString> QtPrompter::SaveFile(QWidget* parent, const QString& title,
                                            const QString& suggested) {
    const QString file = QFileDialog::getSaveFileName(parent, title, suggested);
    if (file.isEmpty()) return std::nullopt;
    return file;
}

std::optional<SaveAnswer> QtPrompter::SaveFileAs(QWidget* parent, const SaveRequest& request) {
    QString selected = request.selectedFilter.isEmpty() && !request.filters.isEmpty()
                           ? request.filters.front()
                           : request.selectedFilter;
    const QString file =
        QFileDialog::getSaveFileName(parent, request.title, request.suggested,
                                     request.filters.join(QStringLiteral(";;")), &selected);
    if (file.isEmpty()) return std::nullopt;
    return SaveAnswer{file, selected};
}

std::optional<QString> QtPrompter::ChooseFolder(QWidget* parent, const QString& title) {
    const QString dir = QFileDialog::getExistingDirectory(parent, title);
    if (dir.isEmpty()) return std::nullopt;
    return dir;
}

std::optional<QString> QtPrompter::OpenFile(QWidget* parent, const QString& title,
                                            const QString& folder) {
    const QString file = QFileDialog::getOpenFileName(parent, title, folder);
    if (file.isEmpty()) return std::nullopt;
    return file;
}

std::optional<QColor> QtPrompter::ChooseColor(QWidget* parent, const QColor& start,
                                              const QString& caption) {
    const QColor c = QColorDialog::getColor(start, parent, caption);
    if (!c.isValid()) return std::nullopt;
    return c;
}

}  // namespace lumivex
