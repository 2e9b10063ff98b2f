// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "datasheets/logo_picture.h"
#include "spreadsheet/application.h"
#include "store/error.h"

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ostrand::datasheets {

/// A sheet that carries a logo, as the project knows it for a type of datasheets.
struct LogoSheet
{
    QString name;
    QString anchor; ///< cell selected before the logo is inserted
    float left = 0; ///< points, from the corner of the sheet
    float top = 0;
    QString defaultCell; ///< the current cell when the sheet is done
    bool isDefault = false;
};

/// Replaces the logo in workbooks, one after the other. One application, which nobody else uses,
/// serves all of them; one that has ended is replaced for the next workbook. The end of the object
/// ends it.
class CLogoChg
{
    Q_DECLARE_TR_FUNCTIONS(CLogoChg)

public:
    struct Links
    {
        /// Has the user edit the project's attributes, and returns when he has done.
        std::function<void()> ShowProjectInfo = {};
        std::function<void(bool)> setHourglass = {};
    };

    explicit CLogoChg(Links links);
    ~CLogoChg();
    CLogoChg(const CLogoChg&) = delete;
    CLogoChg& operator=(const CLogoChg&) = delete;

    /// Replaces the logo on the sheets of one workbook and saves it, a template as a template.
    /// Nothing while a workbook is in work. Shows its own failures, and leaves the file as it was
    /// then. `cancelled` comes back as 1 when the user has ended the run.
    void ChangeLogo(const QString& file,
                    const QString& folder,
                    const QString& logoFile,
                    bool isTemplate,
                    int& cancelled);

    /// The datasheet type of a workbook, and the sheets with a logo that the project names for it.
    /// Nothing after a failure, which was shown.
    std::optional<std::vector<LogoSheet>> GetXlsDatasheetType(const QString& file,
                                                              const spreadsheet::Workbook& workbook,
                                                              QString& type) const;

private:
    void changeWorkbook(const QString& file,
                        const QString& path,
                        const QString& logoFile,
                        bool isTemplate);
    void changeSheet(const LogoSheet& row, const QString& logoFile);
    bool deleteLogo() const;
    void insertLogo(const LogoSheet& row, const QString& logoFile);
    std::unique_ptr<spreadsheet::Shape> insertPicture(const QString& logoFile);
    void saveAndClose(const QString& path, bool isTemplate);

    spreadsheet::Application& runningApplication();
    void hide() const noexcept;
    void giveUp() noexcept;
    void quit() noexcept;

    void failed(const QString& file, const QString& path, const store::Error& error);
    int askForLogo(bool isTemplate);
    int changeFirstFile(bool isTemplate);

    Links m_links;
    LogoPicture m_picture;
    std::shared_ptr<spreadsheet::Application> m_application; ///< of all workbooks
    spreadsheet::Application* m_xlApp = nullptr;             ///< while a workbook is in work
    std::shared_ptr<spreadsheet::Workbook> m_wrkBook;
    std::shared_ptr<spreadsheet::Worksheet> m_wrkSht;
};

} // namespace ostrand::datasheets
