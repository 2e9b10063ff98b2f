// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QToolButton;

namespace ostrand::viewing {

class ChoiceBox;
class ZoomBox;
struct ViewerAction;

/// The commands over the pages of a report.
class ReportToolBar final : public QWidget
{
    Q_OBJECT

public:
    /// What the buttons do. Pages are counted from 0.
    struct Commands
    {
        std::function<void()> print;
        std::function<void()> savePdf;
        std::function<void()> firstPage;
        std::function<void()> lastPage;
        std::function<void(int page)> goToPage;
        std::function<void(bool larger)> zoomStep;
        std::function<void(int form)> showForm;
    };

    ReportToolBar(Commands commands, QWidget* parent);

    ZoomBox& zoomBox() const { return *m_cmbZoom; }
    /// The names of the report's forms; the choice shows where there are several.
    void setForms(const QStringList& forms);
    void showForm(int form);
    /// The current page, from 0, and how many there are so far, or in all.
    void showPage(int page, int count, bool complete);

Q_SIGNALS:
    /// The user is done with the field or box that he was in.
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolButton* add(const ViewerAction& design, const std::function<void()>& handler);
    void addFiles();
    void addPaging();
    void addZoom();
    static void setUsable(QWidget* control, bool isUsable);
    void takePage();
    bool revertPage();
    void showPageText();

    Commands m_commands;
    QHBoxLayout* m_layout;
    QLineEdit* m_txtPage = nullptr;
    QLabel* m_lblPages = nullptr;
    ZoomBox* m_cmbZoom = nullptr;
    ChoiceBox* m_cmbForm = nullptr;
    std::vector<QWidget*> m_needPages; ///< controls that have no use without a page
    QToolButton* m_cmdFirst = nullptr;
    QToolButton* m_cmdPrevious = nullptr;
    QToolButton* m_cmdNext = nullptr;
    QToolButton* m_cmdLast = nullptr;
    int m_page = 0;
    int m_count = 0;
};

} // namespace ostrand::viewing
