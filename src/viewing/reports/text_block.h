// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QString>

#include <memory>
#include <vector>

class QPainter;
class QTextLayout;
class QTextLine;

namespace ostrand::viewing::reports {

class Typeface;

enum class Align { Left, Centre, Right };

/// A text broken into lines of a width, all equally high. Line breaks in the text are kept; lines
/// break at blanks, words that are too long behind a hyphen or the like, or else anywhere.
class TextBlock
{
public:
    TextBlock(const QString& text, const Typeface& face, int width, Align align = Align::Left);
    /// The same cut to so many lines, with an ellipsis where something is missing.
    static TextBlock cut(const QString& text,
                         const Typeface& face,
                         int width,
                         int mostLines = 1,
                         Align align = Align::Left);

    const QString& text() const { return m_text; }
    const Typeface& face() const { return *m_face; }
    QStringView lineText(int line) const;
    /// Where a line begins when the upper left corner of line `first` is at (0, 0).
    QPoint lineStart(int line, int first) const;
    int lineCount() const { return static_cast<int>(m_lines.size()); }
    int lineHeight() const;
    int height() const { return lineCount() * lineHeight(); }
    /// How far the longest line reaches.
    int usedWidth() const;
    /// The same without the room beside its longest line, on whichever side that is.
    TextBlock narrowed() const;

    /// Paints the lines from `first` to before `end`, the first one's upper left corner at `at`.
    void paint(QPainter& painter, QPoint at, int first, int end) const;
    /// The places that characters take, one for each of these lines that has some of them; with
    /// the upper left corner of line `first` at (0, 0).
    std::vector<QRect> places(qsizetype start, qsizetype length, int first, int end) const;

private:
    struct Line
    {
        qsizetype start;  ///< in the text
        qsizetype length; ///< without the blanks at its end
        int layout = -1;  ///< of the paragraph, when it is not plain
        int number = 0;   ///< among the lines of that layout
    };
    struct Paragraph
    {
        qsizetype start;
        std::shared_ptr<QTextLayout> layout;
    };

    void breakPlain(QStringView paragraph, qsizetype start);
    void breakShaped(QStringView paragraph, qsizetype start);
    int plainWidth(const Line& line) const;
    QTextLine shapedLine(const Line& line) const;
    int lineWidth(const Line& line) const;
    int offset(int lineWidth) const;
    void paintPlain(QPainter& painter, QPoint at, const Line& line) const;
    void paintShaped(QPainter& painter, QPoint at, const Line& line) const;
    QRect linePlace(const Line& line, qsizetype start, qsizetype end) const;

    QString m_text;
    const Typeface* m_face;
    int m_width;
    Align m_align;
    std::vector<Line> m_lines;
    std::vector<Paragraph> m_shaped;
};

} // namespace ostrand::viewing::reports
