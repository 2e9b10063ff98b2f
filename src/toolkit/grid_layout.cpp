// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/grid_layout.h"

#include <QHeaderView>
#include <QSettings>

#include <algorithm>
#include <chrono>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace ostrand::toolkit {

namespace {

constexpr auto settlingTime = 500ms;
constexpr int widestColumn = 10000;

/// The numbers of a settings entry, or nothing when it is not exactly `count` numbers.
std::optional<std::vector<int>> readNumbers(const QVariant& entry, int count)
{
    const QVariantList list = entry.toList();
    if (list.size() != count)
        return std::nullopt;
    std::vector<int> numbers;
    for (const QVariant& item : list) {
        bool ok = false;
        numbers.push_back(item.toInt(&ok));
        if (!ok)
            return std::nullopt;
    }
    return numbers;
}

bool isPermutation(std::vector<int> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    for (size_t i = 0; i < numbers.size(); ++i) {
        if (numbers[i] != static_cast<int>(i))
            return false;
    }
    return true;
}

} // namespace

GridLayout::GridLayout(QHeaderView& header, const QString& key)
    : m_header(header),
      m_group(u"Grids/"_s + key)
{
    restore();
    m_saving.setSingleShot(true);
    m_saving.setInterval(settlingTime);
    connect(&m_saving, &QTimer::timeout, this, &GridLayout::save);
    connect(&m_header, &QHeaderView::sectionResized, &m_saving, [this] { m_saving.start(); });
    connect(&m_header, &QHeaderView::sectionMoved, &m_saving, [this] { m_saving.start(); });
}

GridLayout::~GridLayout()
{
    if (m_saving.isActive())
        save();
}

void GridLayout::restore()
{
    QSettings settings;
    settings.beginGroup(m_group);
    const int count = m_header.count();
    if (const auto widths = readNumbers(settings.value(u"Widths"_s), count)) {
        for (int i = 0; i < count; ++i) {
            const int width = (*widths)[static_cast<size_t>(i)];
            if (width >= m_header.minimumSectionSize() && width <= widestColumn)
                m_header.resizeSection(i, width);
        }
    }
    if (const auto order = readNumbers(settings.value(u"Order"_s), count);
        order && isPermutation(*order)) {
        for (int place = 0; place < count; ++place) {
            const int column = (*order)[static_cast<size_t>(place)];
            m_header.moveSection(m_header.visualIndex(column), place);
        }
    }
}

void GridLayout::save()
{
    m_saving.stop();
    QVariantList widths;
    QVariantList order;
    for (int i = 0; i < m_header.count(); ++i) {
        widths.append(m_header.sectionSize(i));
        order.append(m_header.logicalIndex(i));
    }
    QSettings settings;
    settings.beginGroup(m_group);
    settings.setValue(u"Widths"_s, widths);
    settings.setValue(u"Order"_s, order);
}

} // namespace ostrand::toolkit
