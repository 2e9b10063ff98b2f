// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/dialog_host.h"

#include "toolkit/paths.h"
#include "toolkit/twips.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace ostrand::toolkit {
namespace {

// Twips.
constexpr int inputWidth = 4500;
constexpr int titleButtonsWidth = 1800;

QWidget* owner()
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}

QMessageBox::Icon iconOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// The folder a dialog starts in, and the name that it offers there.
QString startOf(const FileRequest& request)
{
    QString preset = filePath(request.fileName);
    const QString folder = filePath(request.folder);
    if (folder.isEmpty())
        return preset;
    return preset.isEmpty() ? folder : joinPath(folder, QFileInfo(preset).fileName());
}

/// A question has no answer but its own: without Cancel among them, neither Esc nor the window's
/// frame stands for one, which may well be the answer that loses something.
class MessageWindow final : public QMessageBox
{
public:
    MessageWindow(bool isQuestion, QWidget* parent)
        : QMessageBox(parent),
          m_isQuestion(isQuestion)
    {
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (m_isQuestion && event->matches(QKeySequence::Cancel))
            event->ignore();
        else
            QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override
    {
        if (m_isQuestion)
            event->ignore();
        else
            QMessageBox::closeEvent(event);
    }

private:
    bool m_isQuestion;
};

} // namespace

Answer DialogHost::messageBox(const Box& box)
{
    MessageWindow window(box.buttons == BoxButtons::YesNo, owner());
    window.setObjectName(u"messageBox"_s);
    window.setWindowTitle(box.title);
    window.setTextFormat(Qt::PlainText);
    window.setText(QString(box.text).replace("\r\n"_L1, "\n"_L1));
    window.setIcon(iconOf(box.icon));
    if (box.buttons == BoxButtons::Ok) {
        window.setStandardButtons(QMessageBox::Ok);
        window.exec();
        return Answer::Ok;
    }
    window.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    if (box.buttons == BoxButtons::YesNoCancel)
        window.addButton(QMessageBox::Cancel);
    window.setDefaultButton(QMessageBox::Yes);
    switch (window.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

std::optional<QString> DialogHost::inputBox(const QString& prompt, const QString& title)
{
    QInputDialog dialog(owner());
    dialog.setObjectName(u"inputBox"_s);
    dialog.setWindowTitle(title);
    dialog.setLabelText(prompt);
    // Makes the line, too.
    dialog.setTextValue(QString());
    // The dialog is as wide as its parts need, and does not count its title among them.
    dialog.findChild<QLineEdit*>()->setMinimumWidth(
        std::max(px(inputWidth, &dialog),
                 dialog.fontMetrics().horizontalAdvance(title) + px(titleButtonsWidth, &dialog)));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.textValue();
}

std::optional<QString> DialogHost::fileDialog(const FileRequest& request)
{
    QFileDialog dialog(owner(), request.title);
    dialog.setObjectName(u"cmnDlg"_s);
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    // What is to be done with a file that exists already is the caller's question.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    const QStringList filters = nameFilters(request.filter);
    dialog.setNameFilters(filters);
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size())
        dialog.selectNameFilter(filters[request.filterIndex - 1]);
    if (request.save)
        dialog.setDefaultSuffix(request.suffix);
    const QFileInfo start(startOf(request));
    if (start.isDir())
        dialog.setDirectory(start.absoluteFilePath());
    else if (!start.filePath().isEmpty()) {
        dialog.setDirectory(start.absolutePath());
        dialog.selectFile(start.fileName());
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

std::optional<QString> DialogHost::folderDialog(QWidget* owner, const QString& title)
{
    QFileDialog dialog(owner, title);
    dialog.setObjectName(u"folderDialog"_s);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst());
}

void DialogHost::openAddress(const QString& url)
{
    QDesktopServices::openUrl(QUrl(url));
}

QStringList nameFilters(const QString& filter)
{
    const QStringList parts = filter.split(u'|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // The caption shows its patterns already; Qt reads them from the last brackets.
        const QString caption = parts[i].section(u'(', 0, 0).trimmed();
        const QString patterns = parts[i + 1] == "*.*"_L1 ? u"*"_s : parts[i + 1];
        filters << caption + u" ("_s + QString(patterns).replace(u';', u' ') + u")"_s;
    }
    return filters;
}

} // namespace ostrand::toolkit
