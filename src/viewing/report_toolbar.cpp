// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/report_toolbar.h"

#include "toolkit/named.h"
#include "viewing/choice_box.h"
#include "viewing/viewer_actions.h"
#include "viewing/zoom_box.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;
using ostrand::toolkit::named;

namespace ostrand::viewing {
namespace {

constexpr int groupGap = 10;
constexpr int pageCharacters = 6;

QKeySequence key(const QString& keys)
{
    return QKeySequence(keys);
}

} // namespace

ReportToolBar::ReportToolBar(Commands commands, QWidget* parent)
    : QWidget(parent),
      m_commands(std::move(commands)),
      m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(2);
    // The Tab key visits the controls in the order of their making.
    addFiles();
    addPaging();
    addZoom();
    m_layout->addStretch();
    showPage(0, 0, true);
    setForms({});
}

QToolButton* ReportToolBar::add(const ViewerAction& design, const std::function<void()>& handler)
{
    QToolButton* button = makeButton(this, design, handler);
    m_layout->addWidget(button);
    return button;
}

void ReportToolBar::addFiles()
{
    const auto addFile = [this](const ViewerAction& design, const std::function<void()>& handler) {
        m_needPages.push_back(add(design, handler));
    };
    addFile({.name = u"cmdPrint"_s,
             .text = tr("Print"),
             .glyph = Glyph::Print,
             .keys = {key(u"Ctrl+P"_s)},
             .showsText = true},
            m_commands.print);
    addFile({.name = u"cmdSavePdf"_s,
             .text = tr("Save as PDF"),
             .glyph = Glyph::SavePdf,
             .keys = {key(u"Ctrl+S"_s)},
             .showsText = true},
            m_commands.savePdf);
    m_layout->addSpacing(groupGap);
}

void ReportToolBar::addPaging()
{
    m_cmdFirst = add({.name = u"cmdFirst"_s,
                      .text = tr("First page"),
                      .glyph = Glyph::First,
                      .keys = {key(u"Ctrl+Home"_s), key(u"Home"_s)}},
                     m_commands.firstPage);
    m_cmdPrevious = add({.name = u"cmdPrevious"_s,
                         .text = tr("Previous page"),
                         .glyph = Glyph::Previous,
                         .keys = {key(u"Ctrl+PgUp"_s)}},
                        [this] { m_commands.goToPage(m_page - 1); });
    m_txtPage = named(new QLineEdit(this), u"txtPage"_s);
    m_lblPages = named(new QLabel(this), u"lblPages"_s);
    m_txtPage->setAccessibleName(tr("Page"));
    m_txtPage->setToolTip(tr("Page"));
    m_txtPage->setAlignment(Qt::AlignRight);
    m_txtPage->setFixedWidth(fontMetrics().averageCharWidth() * pageCharacters);
    m_lblPages->setTextFormat(Qt::PlainText);
    m_lblPages->setMinimumWidth(fontMetrics().horizontalAdvance(u" / 0000"_s));
    m_layout->addWidget(m_txtPage);
    m_layout->addWidget(m_lblPages);
    m_cmdNext = add({.name = u"cmdNext"_s,
                     .text = tr("Next page"),
                     .glyph = Glyph::Next,
                     .keys = {key(u"Ctrl+PgDown"_s)}},
                    [this] { m_commands.goToPage(m_page + 1); });
    m_cmdLast = add({.name = u"cmdLast"_s,
                     .text = tr("Last page"),
                     .glyph = Glyph::Last,
                     .keys = {key(u"Ctrl+End"_s), key(u"End"_s)}},
                    m_commands.lastPage);
    m_layout->addSpacing(groupGap);
    m_needPages.push_back(m_txtPage);
    m_txtPage->installEventFilter(this);
    connect(m_txtPage, &QLineEdit::editingFinished, this, &ReportToolBar::takePage);
}

void ReportToolBar::addZoom()
{
    m_needPages.push_back(add({.name = u"cmdZoomOut"_s,
                               .text = tr("Zoom out"),
                               .glyph = Glyph::ZoomOut,
                               .keys = {key(u"Ctrl+-"_s)}},
                              [this] { m_commands.zoomStep(false); }));
    m_cmbZoom = named(new ZoomBox(this), u"cmbZoom"_s);
    m_cmbZoom->setAccessibleName(tr("Zoom"));
    m_cmbZoom->setToolTip(tr("Zoom"));
    m_cmbZoom->setMinimumWidth(m_cmbZoom->sizeHint().width());
    m_layout->addWidget(m_cmbZoom);
    m_needPages.push_back(m_cmbZoom);
    m_needPages.push_back(add({.name = u"cmdZoomIn"_s,
                               .text = tr("Zoom in"),
                               .glyph = Glyph::ZoomIn,
                               .keys = {key(u"Ctrl++"_s), key(u"Ctrl+="_s)}},
                              [this] { m_commands.zoomStep(true); }));
    m_layout->addSpacing(groupGap);
    m_cmbForm = named(new ChoiceBox(this), u"cmbForm"_s);
    m_cmbForm->setAccessibleName(tr("Form of the report"));
    m_cmbForm->setToolTip(tr("Form of the report"));
    m_cmbForm->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_cmbForm->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_layout->addWidget(m_cmbForm);
    connect(
        m_cmbForm, &QComboBox::activated, this, [this](int form) { m_commands.showForm(form); });
    for (const ChoiceBox* box : {m_cmbForm, static_cast<ChoiceBox*>(m_cmbZoom)})
        connect(box, &ChoiceBox::left, this, &ReportToolBar::left);
}

void ReportToolBar::setForms(const QStringList& forms)
{
    m_cmbForm->clear();
    m_cmbForm->addItems(forms);
    m_cmbForm->setVisible(forms.size() > 1);
}

void ReportToolBar::showForm(int form)
{
    m_cmbForm->setCurrentIndex(form);
}

void ReportToolBar::showPage(int page, int count, bool complete)
{
    m_page = page;
    m_count = count;
    // A number under way is not to be typed over.
    if (!m_txtPage->hasFocus() || !m_txtPage->isModified())
        showPageText();
    const QString more = complete ? QString() : u"..."_s;
    m_lblPages->setText(u" / "_s + QString::number(count) + more);
    m_lblPages->setAccessibleName(
        (complete ? tr("Number of pages: %1") : tr("Number of pages so far: %1")).arg(count));
    for (QWidget* control : m_needPages)
        setUsable(control, count > 0);
    for (QToolButton* back : {m_cmdFirst, m_cmdPrevious})
        setUsable(back, page > 0);
    for (QToolButton* on : {m_cmdNext, m_cmdLast})
        setUsable(on, page + 1 < count || !complete);
}

void ReportToolBar::setUsable(QWidget* control, bool isUsable)
{
    if (auto* button = qobject_cast<QToolButton*>(control))
        button->defaultAction()->setEnabled(isUsable);
    else
        control->setEnabled(isUsable);
}

void ReportToolBar::takePage()
{
    if (!m_txtPage->isModified())
        return;
    bool isNumber = false;
    const int page = m_txtPage->text().trimmed().toInt(&isNumber);
    showPageText();
    if (isNumber)
        m_commands.goToPage(page - 1);
}

bool ReportToolBar::revertPage()
{
    const bool wasTyped = m_txtPage->isModified();
    showPageText();
    return wasTyped;
}

void ReportToolBar::showPageText()
{
    m_txtPage->setText(m_count ? QString::number(m_page + 1) : QString());
}

/// In the page field, Esc drops a number under way before it closes anything.
bool ReportToolBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape
        || !revertPage())
        return QWidget::eventFilter(watched, event);
    Q_EMIT left();
    return true;
}

} // namespace ostrand::viewing
