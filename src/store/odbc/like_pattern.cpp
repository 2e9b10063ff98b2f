// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/odbc/like_pattern.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace ostrand::store::odbc {
namespace {

constexpr QChar escape = u'!';

struct Part
{
    enum class Kind { Character, Any, Many, Class };

    Kind kind = Kind::Character;
    QString text; ///< the character, or what stands in the class
    bool negated = false;
};

using Kind = Part::Kind;

std::vector<Part> parts(QStringView pattern)
{
    std::vector<Part> list;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        const qsizetype end = c == u'[' ? pattern.indexOf(u']', i) : -1;
        if (end > i) {
            QStringView inner = pattern.sliced(i + 1, end - i - 1);
            const bool negated = inner.size() > 1 && inner.front() == u'!';
            if (negated)
                inner = inner.sliced(1);
            if (!inner.isEmpty()) // [] stands for nothing at all
                list.push_back({Kind::Class, inner.toString(), negated});
            i = end;
        } else if (c == u'*') {
            list.push_back({Kind::Many, {}});
        } else if (c == u'?') {
            list.push_back({Kind::Any, {}});
        } else if (c == u'#') {
            list.push_back({Kind::Class, u"0-9"_s});
        } else {
            list.push_back({Kind::Character, QString(c)});
        }
    }
    return list;
}

QString text(const QString& value)
{
    return u'\'' + QString(value).replace(u'\'', "''"_L1) + u'\'';
}

QString bracketed(const Part& part, QStringView negation)
{
    return u'[' + (part.negated ? negation.toString() : QString()) + part.text + u']';
}

/// % for any text and _ for any character, which LIKE and SIMILAR TO have in common.
QString percentForm(const std::vector<Part>& list, QStringView special, bool withClasses)
{
    QString result;
    for (const Part& part : list) {
        switch (part.kind) {
        case Kind::Many:
            result += u'%';
            break;
        case Kind::Any:
            result += u'_';
            break;
        case Kind::Class:
            result += withClasses ? bracketed(part, u"^") : u"_"_s;
            break;
        case Kind::Character:
            if (special.contains(part.text) || part.text == escape)
                result += escape;
            result += part.text;
            break;
        }
    }
    return result;
}

/// GLOB tells case apart where LIKE does not, so a letter becomes a class of both its forms.
QString globForm(const std::vector<Part>& list)
{
    QString result;
    for (const Part& part : list) {
        const QString lower = part.text.toLower();
        const QString upper = part.text.toUpper();
        switch (part.kind) {
        case Kind::Many:
            result += u'*';
            break;
        case Kind::Any:
            result += u'?';
            break;
        case Kind::Class:
            result += u'[' + (part.negated ? u"^"_s : QString()) + lower
                      + (upper == lower ? QString() : upper) + u']';
            break;
        case Kind::Character:
            if (lower != upper)
                result += u'[' + lower + upper + u']';
            else
                result += part.text == "["_L1 ? u"[[]"_s : part.text;
            break;
        }
    }
    return result;
}

QString likeWith(const QString& pattern)
{
    // Servers differ in whether a backslash escapes; with an escape named it never does.
    const bool needsEscape = pattern.contains(escape) || pattern.contains(u'\\');
    return u"LIKE "_s + text(pattern) + (needsEscape ? u" ESCAPE '!'"_s : QString());
}

} // namespace

QString likeClause(QStringView pattern, PatternForm form)
{
    const std::vector<Part> list = parts(pattern);
    bool hasClass = false;
    for (const Part& part : list)
        hasClass = hasClass || part.kind == Kind::Class;
    if (hasClass && form == PatternForm::Glob)
        return u"GLOB "_s + text(globForm(list));
    if (hasClass && form == PatternForm::SimilarTo) {
        return u"SIMILAR TO "_s + text(percentForm(list, u"%_|*+?{}()[]\\^$.", true))
               + u" ESCAPE '!'"_s;
    }
    if (form == PatternForm::LikeClasses)
        return likeWith(percentForm(list, u"%_[", true));
    return likeWith(percentForm(list, u"%_", false));
}

} // namespace ostrand::store::odbc
