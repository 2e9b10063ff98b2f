// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/text_block.h"

#include "viewing/reports/typeface.h"

#include <QPainter>
#include <QTextLayout>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

bool isOdd(QChar character)
{
    return character < u' ' || (character >= QChar(0x7f) && character <= QChar(0x9f))
           || character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

/// Line breaks of any kind as '\n', other control characters as blanks.
QString cleaned(const QString& text)
{
    if (std::none_of(text.begin(), text.end(), isOdd))
        return text;
    QString clean = text;
    clean.replace(u"\r\n"_s, u"\n"_s);
    for (QChar& character : clean) {
        if (character == u'\r' || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator)
            character = u'\n';
        else if (character != u'\n' && isOdd(character))
            character = u' ';
    }
    while (clean.endsWith(u'\n'))
        clean.chop(1);
    return clean;
}

/// A long word breaks best behind one of these.
bool isSeam(QChar character)
{
    static const QString seams = u"-/\\_,;.:+&"_s;
    return seams.contains(character);
}

} // namespace

TextBlock::TextBlock(const QString& text, const Typeface& face, int width, Align align)
    : m_text(cleaned(text)),
      m_face(&face),
      m_width(std::max(width, 1)),
      m_align(align)
{
    if (m_text.isEmpty())
        return;
    const QStringView all(m_text);
    for (qsizetype start = 0; start <= all.size();) {
        qsizetype end = all.indexOf(u'\n', start);
        if (end < 0)
            end = all.size();
        const QStringView paragraph = all.sliced(start, end - start);
        if (face.isPlain(paragraph))
            breakPlain(paragraph, start);
        else
            breakShaped(paragraph, start);
        start = end + 1;
    }
}

TextBlock
TextBlock::cut(const QString& text, const Typeface& face, int width, int mostLines, Align align)
{
    constexpr qsizetype mostCharacters = 1000;
    const bool tooLong = text.size() > mostCharacters;
    TextBlock block(tooLong ? text.left(mostCharacters) : text, face, width, align);
    if (!tooLong && block.lineCount() <= mostLines)
        return block;
    const int last = std::min(mostLines, block.lineCount()) - 1;
    const qsizetype start = last < 0 ? 0 : block.m_lines[static_cast<std::size_t>(last)].start;
    const QString head = block.m_text.left(start);
    QString tail = block.m_text.sliced(start);
    if (!tooLong && tail.contains(u'\n')) {
        TextBlock joined(head + QString(tail).replace(u'\n', u' '), face, width, align);
        if (joined.lineCount() <= mostLines)
            return joined;
    }
    // The last line takes what fits into it, also a part of a word.
    for (QChar& character : tail) {
        if (character == u' ' || character == u'\n')
            character = QChar::Nbsp;
    }
    const auto shortened = [&](qsizetype length) {
        return TextBlock(head + tail.left(length) + u'\u2026', face, width, align);
    };
    qsizetype fits = 0;
    qsizetype tooMany = tail.size() + 1;
    while (fits + 1 < tooMany) {
        const qsizetype middle = (fits + tooMany) / 2;
        (shortened(middle).lineCount() <= mostLines ? fits : tooMany) = middle;
    }
    return shortened(fits);
}

int TextBlock::lineHeight() const
{
    return m_face->lineHeight();
}

void TextBlock::breakPlain(QStringView paragraph, qsizetype start)
{
    const qsizetype size = paragraph.size();
    qsizetype begin = 0;
    qsizetype wordEnd = -1;  // of the last word that is whole on the line
    qsizetype wordNext = -1; // where the word behind it begins
    qsizetype seam = -1;
    int reach = 0;
    for (qsizetype i = 0; i < size; ++i) {
        const QChar character = paragraph[i];
        const int advance = m_face->glyph(character.unicode()).advance;
        if (character == u' ') {
            if (i > begin && paragraph[i - 1] != u' ')
                wordEnd = i;
            wordNext = i + 1;
            reach += advance;
            continue;
        }
        if (reach + advance > m_width && i > begin) {
            qsizetype end = i;
            qsizetype next = i;
            if (wordEnd > begin) {
                end = wordEnd;
                next = wordNext;
            } else if (seam > begin) {
                end = next = seam;
            }
            m_lines.push_back({start + begin, end - begin});
            begin = next;
            wordEnd = wordNext = seam = -1;
            reach = 0;
            i = begin - 1;
            continue;
        }
        reach += advance;
        if (isSeam(character) && i > begin)
            seam = i + 1;
    }
    qsizetype end = size;
    while (end > begin && paragraph[end - 1] == u' ')
        --end;
    m_lines.push_back({start + begin, end - begin});
}

void TextBlock::breakShaped(QStringView paragraph, qsizetype start)
{
    auto layout = std::make_shared<QTextLayout>(paragraph.toString(), m_face->font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    // Text that runs to the left begins at the right edge.
    const bool toRight =
        m_align == Align::Right || (m_align == Align::Left && paragraph.isRightToLeft());
    option.setAlignment(m_align == Align::Centre ? Qt::AlignHCenter
                        : toRight                ? Qt::AlignRight | Qt::AlignAbsolute
                                                 : Qt::AlignLeft | Qt::AlignAbsolute);
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    const int place = static_cast<int>(m_shaped.size());
    for (int number = 0;; ++number) {
        QTextLine line = layout->createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(m_width);
        m_lines.push_back({start + line.textStart(), line.textLength(), place, number});
    }
    layout->endLayout();
    m_shaped.push_back({start, std::move(layout)});
}

int TextBlock::plainWidth(const Line& line) const
{
    return m_face->width(QStringView(m_text).sliced(line.start, line.length));
}

int TextBlock::usedWidth() const
{
    int width = 0;
    for (const Line& line : m_lines)
        width = std::max(width, lineWidth(line));
    return width;
}

int TextBlock::lineWidth(const Line& line) const
{
    if (line.layout < 0)
        return plainWidth(line);
    return static_cast<int>(std::ceil(shapedLine(line).naturalTextWidth()));
}

QTextLine TextBlock::shapedLine(const Line& line) const
{
    return m_shaped[static_cast<std::size_t>(line.layout)].layout->lineAt(line.number);
}

TextBlock TextBlock::narrowed() const
{
    return m_shaped.empty() ? *this : TextBlock(m_text, *m_face, usedWidth(), m_align);
}

QStringView TextBlock::lineText(int line) const
{
    const Line& place = m_lines[static_cast<std::size_t>(line)];
    return QStringView(m_text).sliced(place.start, place.length);
}

QPoint TextBlock::lineStart(int line, int first) const
{
    const Line& place = m_lines[static_cast<std::size_t>(line)];
    const int indent = place.layout < 0 ? offset(m_align == Align::Left ? 0 : plainWidth(place))
                                        : qRound(shapedLine(place).naturalTextRect().x());
    return {indent, (line - first) * m_face->lineHeight()};
}

int TextBlock::offset(int lineWidth) const
{
    if (m_align == Align::Left)
        return 0;
    const int room = std::max(0, m_width - lineWidth);
    return m_align == Align::Right ? room : room / 2;
}

void TextBlock::paint(QPainter& painter, QPoint at, int first, int end) const
{
    for (int i = first; i < std::min(end, lineCount()); ++i) {
        const Line& line = m_lines[static_cast<std::size_t>(i)];
        const QPoint baseline =
            at + QPoint(0, (i - first) * m_face->lineHeight() + m_face->baseline());
        if (line.layout < 0)
            paintPlain(painter, baseline, line);
        else
            paintShaped(painter, baseline, line);
    }
}

void TextBlock::paintPlain(QPainter& painter, QPoint at, const Line& line) const
{
    constexpr qsizetype usual = 256;
    QVarLengthArray<quint32, usual> glyphs(line.length);
    QVarLengthArray<QPointF, usual> places(line.length);
    int reach = offset(m_align == Align::Left ? 0 : plainWidth(line));
    for (qsizetype i = 0; i < line.length; ++i) {
        const Typeface::Glyph& glyph = m_face->glyph(m_text[line.start + i].unicode());
        glyphs[i] = glyph.index;
        places[i] = QPointF(reach, 0);
        reach += glyph.advance;
    }
    if (line.length == 0)
        return;
    QGlyphRun run = m_face->emptyRun();
    run.setRawData(glyphs.constData(), places.constData(), static_cast<int>(line.length));
    painter.drawGlyphRun(at, run);
}

void TextBlock::paintShaped(QPainter& painter, QPoint at, const Line& line) const
{
    const QTextLine shaped = shapedLine(line);
    shaped.draw(&painter, QPointF(at) - QPointF(0, shaped.ascent()) - QPointF(0, shaped.y()));
}

QRect TextBlock::linePlace(const Line& line, qsizetype start, qsizetype end) const
{
    if (line.layout < 0) {
        const QStringView text(m_text);
        const int left =
            offset(plainWidth(line)) + m_face->width(text.sliced(line.start, start - line.start));
        return {left, 0, m_face->width(text.sliced(start, end - start)), m_face->lineHeight()};
    }
    const Paragraph& paragraph = m_shaped[static_cast<std::size_t>(line.layout)];
    const QTextLine shaped = shapedLine(line);
    const int from = static_cast<int>(shaped.cursorToX(static_cast<int>(start - paragraph.start)));
    const int to = static_cast<int>(shaped.cursorToX(static_cast<int>(end - paragraph.start)));
    return {std::min(from, to), 0, std::abs(to - from), m_face->lineHeight()};
}

std::vector<QRect> TextBlock::places(qsizetype start, qsizetype length, int first, int end) const
{
    std::vector<QRect> all;
    for (int i = first; i < std::min(end, lineCount()); ++i) {
        const Line& line = m_lines[static_cast<std::size_t>(i)];
        const qsizetype from = std::max(start, line.start);
        const qsizetype to = std::min(start + length, line.start + line.length);
        if (from < to)
            all.push_back(
                linePlace(line, from, to).translated(0, (i - first) * m_face->lineHeight()));
    }
    return all;
}

} // namespace ostrand::viewing::reports
