// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/value_list.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>

namespace ostrand::toolkit {

namespace {

constexpr int mostRowsShown = 12;
constexpr int rowMargin = 6;
/// Enough to know the width by; measuring every value of a long list takes too long.
constexpr int measuredValues = 1000;

} // namespace

void FilteredValues::setValues(const QStringList& values)
{
    m_values = values;
    filter({});
}

void FilteredValues::filter(const QString& text)
{
    beginResetModel();
    m_hits.clear();
    std::vector<int> inside;
    for (int i = 0; i < static_cast<int>(m_values.size()); ++i) {
        const qsizetype place =
            text.isEmpty() ? 0 : m_values[i].indexOf(text, 0, Qt::CaseInsensitive);
        if (place == 0)
            m_hits.push_back(i);
        else if (place > 0)
            inside.push_back(i);
    }
    m_hits.insert(m_hits.end(), inside.begin(), inside.end());
    endResetModel();
}

int FilteredValues::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_hits.size());
}

QVariant FilteredValues::data(const QModelIndex& index, int role) const
{
    if (role == Qt::SizeHintRole)
        return QSize(0, m_rowHeight);
    return role == Qt::DisplayRole ? at(index.row()) : QVariant();
}

ValueList::ValueList(QWidget* parent)
    : QFrame(parent, Qt::Popup)
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAccessibleName(tr("List of values"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->addWidget(&m_view);
    layout->addWidget(&m_nothing);
    m_nothing.setText(tr("No such value"));
    m_nothing.setEnabled(false);
    m_nothing.setMargin(3);
    m_view.setMinimumSize(1, 1);
    m_view.setModel(&m_values);
    m_view.setUniformItemSizes(true);
    m_view.setFrameStyle(QFrame::NoFrame);
    m_view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view.setTextElideMode(Qt::ElideRight);
    m_view.setMouseTracking(true);
    m_view.setAccessibleName(accessibleName());
    m_view.setFocusPolicy(Qt::NoFocus);
    installEventFilter(this);
    m_view.installEventFilter(this);
    connect(&m_view, &QListView::entered, &m_view, &QListView::setCurrentIndex);
    connect(&m_view, &QListView::clicked, this, [this](const QModelIndex& index) {
        Q_EMIT picked(m_values.at(index.row()));
    });
}

void ValueList::drop(const QStringList& values,
                     const QString& current,
                     QWidget* editor,
                     const QRect& cell)
{
    m_editor = editor;
    setFocusProxy(editor);
    QPalette colours = editor->palette();
    colours.setColor(QPalette::WindowText, colours.color(QPalette::PlaceholderText));
    setPalette(colours);
    m_view.setFont(editor->font());
    m_nothing.setFont(editor->font());
    m_values.setRowHeight(m_view.fontMetrics().height() + rowMargin);
    m_values.setValues(values);
    m_cell = cell;
    const int scrollBar = m_view.verticalScrollBar()->sizeHint().width();
    const int margin = m_view.fontMetrics().averageCharWidth() * 3;
    m_width = std::max(cell.width(), widestValue() + margin + scrollBar);
    fit();
    show();
    highlight(static_cast<int>(values.indexOf(current)));
}

int ValueList::widestValue() const
{
    int widest = 0;
    for (int i = 0; i < std::min(m_values.rowCount(), measuredValues); ++i)
        widest = std::max(widest, m_view.fontMetrics().horizontalAdvance(m_values.at(i)));
    return widest;
}

/// Lays the list below the cell, or above it where there is more room, as high as its values need.
void ValueList::fit()
{
    const bool isEmpty = m_values.rowCount() == 0;
    m_nothing.setVisible(isEmpty);
    m_view.setVisible(!isEmpty);
    const QRect screen = m_editor->screen()->availableGeometry();
    const int rowHeight = m_view.fontMetrics().height() + rowMargin;
    const int rows = std::clamp(m_values.rowCount(), 1, mostRowsShown);
    QRect place(m_cell.left(),
                m_cell.bottom() + 1,
                std::min(m_width, screen.width()),
                rows * rowHeight + 2 * frameWidth() + 2);
    const int tallest = mostRowsShown * rowHeight;
    if (place.bottom() > screen.bottom()
        || (m_cell.bottom() + tallest > screen.bottom() && m_cell.top() - tallest > screen.top()))
        place.moveBottom(m_cell.top() - 1);
    place.moveLeft(std::clamp(place.left(), screen.left(), screen.right() - place.width() + 1));
    setGeometry(place);
}

void ValueList::filter(const QString& text)
{
    m_values.filter(text);
    fit();
    highlight(text.isEmpty() || m_values.rowCount() == 0 ? -1 : 0);
}

void ValueList::highlight(int row)
{
    const QModelIndex index = m_values.index(row);
    m_view.setCurrentIndex(index);
    if (index.isValid())
        m_view.scrollTo(index, QAbstractItemView::EnsureVisible);
    else
        m_view.scrollToTop();
}

bool ValueList::moveBy(int key)
{
    const int page =
        std::max(1, m_view.viewport()->height() / std::max(1, m_view.sizeHintForRow(0)) - 1);
    int step = 0;
    switch (key) {
    case Qt::Key_Down:
        step = 1;
        break;
    case Qt::Key_Up:
        step = -1;
        break;
    case Qt::Key_PageDown:
        step = page;
        break;
    case Qt::Key_PageUp:
        step = -page;
        break;
    default:
        return false;
    }
    if (m_values.rowCount() > 0)
        highlight(std::clamp(m_view.currentIndex().row() + step, 0, m_values.rowCount() - 1));
    return true;
}

QString ValueList::highlighted() const
{
    const QModelIndex index = m_view.currentIndex();
    return index.isValid() ? m_values.at(index.row()) : QString();
}

bool ValueList::eventFilter(QObject* object, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease
                       || event->type() == QEvent::InputMethod;
    if (!isKey || !m_editor)
        return QFrame::eventFilter(object, event);
    QCoreApplication::sendEvent(m_editor, event);
    return true;
}

} // namespace ostrand::toolkit
