// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"

#include <QString>

#include <memory>
#include <optional>

class QWidget;

/// Message boxes, input boxes and dialogs of the program, and the two recurring forms of error
/// texts. All of them pass through one host, which tests replace by one that answers by itself.
namespace ostrand::toolkit {

/// The title of every box that has no title of its own.
QString programTitle();

enum class BoxIcon { None, Exclamation, Question, Information };
enum class BoxButtons { Ok, YesNo, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel };

struct Box
{
    QString text; ///< line breaks as CR LF, as texts are joined everywhere
    BoxIcon icon = BoxIcon::Exclamation;
    BoxButtons buttons = BoxButtons::Ok;
    QString title = programTitle();
};

struct FileRequest
{
    QString title;
    QString filter;        ///< pairs "caption|patterns|caption|patterns", patterns parted by ';'
    int filterIndex = 1;   ///< the pair selected first, counted from 1
    QString fileName = {}; ///< preset file or folder
    QString folder = {};   ///< initial folder; "" for that of `fileName`
    bool save = false;
    QString suffix = QStringLiteral("mdb"); ///< of a file to be saved whose name has none
};

/// What shows the boxes. The default host shows real windows.
class PromptHost
{
public:
    virtual ~PromptHost() = default;
    virtual Answer messageBox(const Box& box) = 0;
    /// The text typed; nothing when cancelled.
    virtual std::optional<QString> inputBox(const QString& prompt, const QString& title) = 0;
    /// The full path chosen; nothing when cancelled.
    virtual std::optional<QString> fileDialog(const FileRequest& request) = 0;
    /// The folder chosen, over `owner`; nothing when cancelled.
    virtual std::optional<QString> folderDialog(QWidget* owner, const QString& title) = 0;
    /// Opens an address in the default browser.
    virtual void openAddress(const QString& url) = 0;
};

PromptHost& promptHost();
/// Replaces the host, and gives back the one before; nullptr brings the default one.
std::unique_ptr<PromptHost> setPromptHost(std::unique_ptr<PromptHost> host);

/// An exclamation box with OK.
void showFailure(const QString& text);
/// An information box with OK.
void showNotice(const QString& text);
/// A question box with Yes and No; true for Yes.
bool askYesNo(const QString& text);

/// text, line break, number, " : ", description.
QString formA(const QString& text, const store::Error& error);
/// text, line break, "Error : ", number, ". ", description.
QString formB(const QString& text, const store::Error& error);
/// "Error ", number, the description in brackets, and the procedure of a window that it ended.
QString
procedureFailure(const store::Error& error, const QString& procedure, const QString& window);

/// The error that callers of a file dialog meet when the user cancels it.
inline constexpr int cancelledDialog = 32755;
/// The file chosen; raises 32755 when the user cancels.
QString chooseFile(const FileRequest& request);
/// The file chosen, for callers that take a cancelled dialog as no choice: "" then, and also where
/// there is no such file.
QString chooseFileIfAny(const FileRequest& request);

} // namespace ostrand::toolkit
