// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_browser.h"

#include "app/help_page.h"
#include "app/help_search.h"
#include "toolkit/prompts.h"

#include <QImage>
#include <QRegularExpression>
#include <QTextBlock>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

const QString helpScheme = u"help"_s;
constexpr double pageMargin = 12;
constexpr qsizetype mostMarks = 2000;
constexpr int smallest = -4;
constexpr int largest = 12;

QUrl urlOf(const QString& page)
{
    return QUrl(helpScheme + u":/"_s).resolved(QUrl(page));
}

QString nameOf(const QUrl& url)
{
    return url.path().mid(1);
}

/// In place of a picture that is not there: the text browser would look for a file of that name.
QImage noPicture()
{
    QImage picture(1, 1, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

/// The colour of links, made readable where a palette for dark windows leaves it as it is on white.
QColor linkColour(const QPalette& palette)
{
    constexpr int leastContrast = 60;
    constexpr int lightLink = 180;
    const QColor link = palette.color(QPalette::Link);
    const int page = qGray(palette.color(QPalette::Base).rgb());
    if (std::abs(qGray(link.rgb()) - page) >= leastContrast)
        return link;
    const int readable = page < lightLink / 2 ? lightLink : 255 - lightLink;
    return QColor::fromHsl(link.hslHue(), link.hslSaturation(), readable);
}

} // namespace

HelpBrowser::HelpBrowser(QWidget* parent)
    : QTextBrowser(parent)
{
    setOpenLinks(false);
    document()->setDocumentMargin(pageMargin);
    takeColours();
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::follow);
    connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& url) {
        Q_EMIT pageShown(nameOf(url));
    });
}

void HelpBrowser::setFile(std::shared_ptr<const HelpFile> file)
{
    m_file = std::move(file);
    m_isNewFile = true;
}

bool HelpBrowser::showPage(const QString& page)
{
    const QUrl url = urlOf(page);
    const auto html = readPage(nameOf(url));
    if (!html || !isShowablePage(*html))
        return false;
    setExtraSelections({});
    setSource(url, QTextDocument::HtmlResource);
    if (std::exchange(m_isNewFile, false)) {
        // A page of the same name is not read again otherwise.
        reload();
        clearHistory();
    }
    return true;
}

QString HelpBrowser::page() const
{
    return nameOf(source());
}

void HelpBrowser::follow(const QUrl& link)
{
    if (link.scheme() == helpScheme) {
        if (!showPage(link.toString(QUrl::RemoveScheme)))
            Q_EMIT pageMissing();
        return;
    }
    if (followToOtherHelp(link))
        return;
    static const QStringList outside{u"http"_s, u"https"_s, u"mailto"_s};
    if (outside.contains(link.scheme()))
        toolkit::promptHost().openAddress(link.toString());
}

/// Links between help files have the form "ms-its:OstrandErrors.chm::/ID_ERRORS.htm".
bool HelpBrowser::followToOtherHelp(const QUrl& link)
{
    static const QRegularExpression form(
        u"^(OstrandDatasheets|OstrandErrors)\\.chm::/(\\w[\\w-]*)\\.htm$"_s);
    const auto parts = form.match(link.path());
    if (link.scheme() != "ms-its"_L1 || !parts.hasMatch())
        return false;
    Q_EMIT otherHelpAsked(parts.captured(2), parts.captured(1) == "OstrandDatasheets"_L1);
    return true;
}

std::optional<QString> HelpBrowser::readPage(const QString& name) const
{
    const auto bytes = m_file ? m_file->read(name) : std::nullopt;
    return bytes ? std::optional(decodeHelpPage(*bytes)) : std::nullopt;
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name)
{
    const bool isOurs = name.scheme() == helpScheme && m_file;
    if (type == QTextDocument::ImageResource) {
        const auto bytes = isOurs ? m_file->read(nameOf(name)) : std::nullopt;
        const QImage picture = bytes ? QImage::fromData(*bytes) : QImage();
        return picture.isNull() ? noPicture() : picture;
    }
    const auto text = isOurs ? readPage(nameOf(name)) : std::nullopt;
    return text ? QVariant(*text) : QVariant();
}

void HelpBrowser::markWords(const QStringList& words)
{
    QList<ExtraSelection> marks;
    ExtraSelection mark;
    mark.format.setBackground(palette().highlight());
    mark.format.setForeground(palette().highlightedText());
    for (QTextBlock block = document()->begin(); block.isValid() && marks.size() < mostMarks;
         block = block.next()) {
        for (const TextRange& range : findWords(block.text(), words)) {
            mark.cursor = QTextCursor(block);
            mark.cursor.setPosition(block.position() + static_cast<int>(range.start));
            mark.cursor.setPosition(block.position() + static_cast<int>(range.start + range.length),
                                    QTextCursor::KeepAnchor);
            marks << mark;
        }
    }
    setExtraSelections(marks);
    if (marks.isEmpty())
        return;
    QTextCursor first = marks.first().cursor;
    first.setPosition(first.anchor());
    setTextCursor(first);
    ensureCursorVisible();
}

bool HelpBrowser::goToText(const QString& text, bool backwards)
{
    const auto flags = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (find(text, flags))
        return true;
    const QTextCursor before = textCursor();
    moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    if (find(text, flags))
        return true;
    setTextCursor(before);
    return false;
}

void HelpBrowser::stepZoom(int steps)
{
    const int wanted = steps == 0 ? 0 : std::clamp(m_zoom + steps, smallest, largest);
    zoomIn(wanted - m_zoom);
    m_zoom = wanted;
}

void HelpBrowser::takeColours()
{
    document()->setDefaultStyleSheet(u"a[href] { color: "_s + linkColour(palette()).name()
                                     + u"; }"_s);
}

void HelpBrowser::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    takeColours();
    reload();
}

void HelpBrowser::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QTextBrowser::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() != 0)
        stepZoom(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}

} // namespace ostrand::app
