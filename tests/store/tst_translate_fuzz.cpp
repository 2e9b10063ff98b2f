// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/error.h"
#include "store/memory_project.h"
#include "store/sql/translate.h"
#include "store/statement_catalogue.h"

#include <QTest>

#include <random>

using namespace Qt::StringLiterals;
using namespace ostrand;
using namespace ostrand::tests;
using store::sql::Verb;

namespace {

/// What the statement that is being prepared wants to touch.
struct Watch
{
    bool writes = false;
    bool touchesSchema = false;
};

int watch(void* data, int action, const char* first, const char*, const char*, const char*)
{
    auto* seen = static_cast<Watch*>(data);
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
        break;
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
        seen->writes = true;
        if (QByteArray(first).startsWith("sqlite_"))
            seen->touchesSchema = true;
        break;
    default:
        seen->touchesSchema = true;
    }
    return SQLITE_OK;
}

constexpr int casesPerTest = 70'000;

class Fuzz
{
public:
    explicit Fuzz(unsigned seed)
        : m_random(seed)
    {
        sqlite3_set_authorizer(m_project.connection(), watch, &m_watch);
    }

    unsigned below(qsizetype limit)
    {
        return static_cast<unsigned>(m_random()) % static_cast<unsigned>(limit);
    }

    QString oneOf(const QStringList& list) { return list[below(list.size())]; }

    /// Holds what has to hold for any text; returns a complaint or nothing.
    QString check(const QString& statement)
    {
        try {
            const auto tokens = store::sql::tokenise(statement);
            const auto translated = store::sql::translate(tokens);
            ++m_translated;
            QString complaint = checkPrepared(translated.sql, translated.verb, tokens);
            if (complaint.isEmpty() && !translated.sqlDropping.isEmpty())
                complaint = checkPrepared(translated.sqlDropping, translated.verb, tokens);
            if (complaint.isEmpty() && translated.keyed)
                complaint = checkKeyed(*translated.keyed, tokens);
            return complaint;
        } catch (const store::Error& error) {
            ++m_refused;
            return error.number() > 3000 && !error.description().isEmpty() ? QString()
                                                                           : u"odd error"_s;
        }
    }

    int translated() const { return m_translated; }
    int prepared() const { return m_prepared; }
    int refused() const { return m_refused; }

private:
    QString checkPrepared(const QByteArray& sql, Verb verb, const store::sql::TokenList& tokens)
    {
        m_watch = {};
        sqlite3_stmt* raw = nullptr;
        const char* tail = nullptr;
        const int code =
            sqlite3_prepare_v2(m_project.connection(), sql.constData(), -1, &raw, &tail);
        const StatementHandle statement(raw);
        if (code != SQLITE_OK)
            return {};
        ++m_prepared;
        if (raw == nullptr || *tail != '\0')
            return u"not one statement: "_s + QString::fromUtf8(sql);
        if (m_watch.touchesSchema)
            return u"touches the schema: "_s + QString::fromUtf8(sql);
        const bool reads = verb == Verb::Select;
        if (reads != !m_watch.writes || reads != (sqlite3_stmt_readonly(raw) != 0))
            return u"another verb: "_s + QString::fromUtf8(sql);
        if (sqlite3_bind_parameter_count(raw) > tokens.literals.size())
            return u"a parameter of no literal: "_s + QString::fromUtf8(sql);
        return {};
    }

    QString checkKeyed(const store::sql::KeyedSelect& keyed, const store::sql::TokenList& tokens)
    {
        QByteArray sql = "SELECT " + keyed.columns + " FROM " + keyed.from;
        if (!keyed.where.isEmpty())
            sql += " WHERE " + keyed.where;
        if (!keyed.orderBy.isEmpty())
            sql += " ORDER BY " + keyed.orderBy;
        return checkPrepared(sql, Verb::Select, tokens);
    }

    MemoryProject m_project;
    Watch m_watch;
    std::mt19937 m_random;
    int m_translated = 0;
    int m_prepared = 0;
    int m_refused = 0;
};

const QStringList& words()
{
    static const QStringList list{u"select"_s,
                                  u"from"_s,
                                  u"where"_s,
                                  u"group"_s,
                                  u"by"_s,
                                  u"having"_s,
                                  u"order"_s,
                                  u"union"_s,
                                  u"all"_s,
                                  u"top 3"_s,
                                  u"percent"_s,
                                  u"distinct"_s,
                                  u"distinctrow"_s,
                                  u"insert"_s,
                                  u"into"_s,
                                  u"values"_s,
                                  u"update"_s,
                                  u"set"_s,
                                  u"delete"_s,
                                  u"inner"_s,
                                  u"left"_s,
                                  u"right"_s,
                                  u"outer"_s,
                                  u"join"_s,
                                  u"on"_s,
                                  u"as"_s,
                                  u"and"_s,
                                  u"or"_s,
                                  u"not"_s,
                                  u"xor"_s,
                                  u"like"_s,
                                  u"between"_s,
                                  u"in"_s,
                                  u"is"_s,
                                  u"null"_s,
                                  u"exists"_s,
                                  u"mod"_s,
                                  u"true"_s,
                                  u"desc"_s,
                                  u"asc"_s,
                                  u"index"_s,
                                  u"qryIndex"_s,
                                  u"document"_s,
                                  u"qryDocXref"_s,
                                  u"Map"_s,
                                  u"Tag"_s,
                                  u"docNo"_s,
                                  u"docType"_s,
                                  u"PlantItemNo"_s,
                                  u"static"_s,
                                  u"[Tag]"_s,
                                  u"[docNo]"_s,
                                  u"[a\"b]"_s,
                                  u"[a--b]"_s,
                                  u"[x;y]"_s,
                                  u"count(*)"_s,
                                  u"Len("_s,
                                  u"IIf("_s,
                                  u"Nz("_s,
                                  u"Max("_s,
                                  u"Left("_s,
                                  u"("_s,
                                  u")"_s,
                                  u","_s,
                                  u"."_s,
                                  u";"_s,
                                  u"*"_s,
                                  u"="_s,
                                  u"<>"_s,
                                  u"<="_s,
                                  u"+"_s,
                                  u"-"_s,
                                  u"/"_s,
                                  u"\\"_s,
                                  u"^"_s,
                                  u"&"_s,
                                  u"!"_s,
                                  u"'a'"_s,
                                  u"\"b\""_s,
                                  u"'it''s'"_s,
                                  u"1"_s,
                                  u"2.5"_s,
                                  u".5"_s,
                                  u"1e9"_s,
                                  u"#1/2/2024#"_s,
                                  u"#2024-01-02 10:00#"_s,
                                  u"--"_s,
                                  u"/*"_s,
                                  u"*/"_s,
                                  u"'"_s,
                                  u"\""_s,
                                  u"["_s,
                                  u"]"_s,
                                  u"#"_s,
                                  u"drop table document"_s,
                                  u"pragma"_s,
                                  u"attach"_s,
                                  u"?1"_s,
                                  u"@x"_s,
                                  u":y"_s,
                                  u"$z"_s,
                                  u"sqlite_schema"_s,
                                  u"writefile("_s,
                                  u"rowid"_s,
                                  u"é"_s,
                                  u"\u0000"_s,
                                  u"\u00a0"_s,
                                  u"\U0001F600"_s};
    return list;
}

/// A statement of the catalogue with one to four slips.
QString mutated(Fuzz& fuzz, const QStringList& statements)
{
    QString text = fuzz.oneOf(statements);
    for (unsigned slips = 1 + fuzz.below(4); slips > 0; --slips) {
        const qsizetype place = fuzz.below(text.size() + 1);
        const qsizetype length = fuzz.below(8);
        switch (fuzz.below(5)) {
        case 0:
            text.remove(place, length);
            break;
        case 1:
            text.insert(place, u' ' + fuzz.oneOf(words()) + u' ');
            break;
        case 2:
            text.insert(place, text.mid(fuzz.below(text.size() + 1), length * 4));
            break;
        case 3:
            text.insert(place, QChar(static_cast<char16_t>(fuzz.below(0x180))));
            break;
        default:
            text.replace(place, length, fuzz.oneOf(words()));
        }
    }
    return text;
}

} // namespace

class TestTranslateFuzz : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void slipsInTheProgramsStatementsAreHarmless();
    void tokenSoupIsHarmless();
    void rawBytesAreHarmless();
    void literalsNeverBecomeSyntax();
};

void TestTranslateFuzz::slipsInTheProgramsStatementsAreHarmless()
{
    Fuzz fuzz(1);
    const QStringList statements = allStatements();
    for (int i = 0; i < casesPerTest; ++i) {
        const QString statement = mutated(fuzz, statements);
        const QString complaint = fuzz.check(statement);
        QVERIFY2(complaint.isEmpty(), qPrintable(statement + u'\n' + complaint));
    }
    // The test is of worth only when a good part gets through.
    QVERIFY(fuzz.prepared() > casesPerTest / 50);
    QVERIFY(fuzz.refused() > casesPerTest / 50);
    qInfo("%d translated, %d prepared, %d refused",
          fuzz.translated(),
          fuzz.prepared(),
          fuzz.refused());
}

void TestTranslateFuzz::tokenSoupIsHarmless()
{
    Fuzz fuzz(2);
    const QStringList starts{u"select"_s,
                             u"select * from index where"_s,
                             u"select Tag from"_s,
                             u"insert into document"_s,
                             u"update index set"_s,
                             u"delete from document where"_s,
                             u""_s};
    for (int i = 0; i < casesPerTest; ++i) {
        QString statement = fuzz.oneOf(starts);
        for (unsigned count = fuzz.below(12); count > 0; --count)
            statement += u' ' + fuzz.oneOf(words());
        const QString complaint = fuzz.check(statement);
        QVERIFY2(complaint.isEmpty(), qPrintable(statement + u'\n' + complaint));
    }
    QVERIFY(fuzz.prepared() > casesPerTest / 500);
    qInfo("%d translated, %d prepared, %d refused",
          fuzz.translated(),
          fuzz.prepared(),
          fuzz.refused());
}

void TestTranslateFuzz::rawBytesAreHarmless()
{
    Fuzz fuzz(3);
    for (int i = 0; i < casesPerTest; ++i) {
        QString statement = fuzz.below(2) == 0 ? u"select "_s : QString();
        for (unsigned length = fuzz.below(40); length > 0; --length) {
            const qsizetype limit = fuzz.below(4) == 0 ? 0x10000 : 0x80;
            statement += QChar(static_cast<char16_t>(fuzz.below(limit)));
        }
        const QString complaint = fuzz.check(statement);
        QVERIFY2(complaint.isEmpty(), qPrintable(statement + u'\n' + complaint));
    }
}

/// Whatever stands in a text, doubled quotes keep it one value that comes back as it was.
void TestTranslateFuzz::literalsNeverBecomeSyntax()
{
    const MemoryProject project;
    Fuzz fuzz(4);
    for (int i = 0; i < 5'000; ++i) {
        QString value;
        for (unsigned count = fuzz.below(6); count > 0; --count)
            value += fuzz.oneOf(words());
        QString doubled = value;
        doubled.replace(u'\'', u"''"_s);
        QCOMPARE(project.run(u"select '"_s + doubled + u"' & ''"), QStringList{value});
        QString bracketed = value;
        bracketed.remove(u'[').remove(u']').remove(QChar(u'\0'));
        if (!bracketed.trimmed().isEmpty())
            QCOMPARE(project.columnsOf(u"select 1 as ["_s + bracketed + u']'),
                     QStringList{bracketed});
    }
}

QTEST_APPLESS_MAIN(TestTranslateFuzz)
#include "tst_translate_fuzz.moc"
