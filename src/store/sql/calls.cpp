// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/sql/calls.h"

#include <array>

namespace ostrand::store::sql {

namespace {

using Form = FunctionRule::Form;

constexpr std::array rules{
    FunctionRule{u"Count", 1, 1, Form::Aggregate, "count"},
    FunctionRule{u"Sum", 1, 1, Form::Aggregate, "sum"},
    FunctionRule{u"Avg", 1, 1, Form::Aggregate, "avg"},
    FunctionRule{u"Min", 1, 1, Form::Extreme, "min"},
    FunctionRule{u"Max", 1, 1, Form::Extreme, "max"},
    FunctionRule{u"First", 1, 1, Form::Aggregate, "ostrand_first"},
    FunctionRule{u"Last", 1, 1, Form::Aggregate, "ostrand_last"},
    FunctionRule{u"StDev", 1, 1, Form::Aggregate, "ostrand_stdev"},
    FunctionRule{u"StDevP", 1, 1, Form::Aggregate, "ostrand_stdevp"},
    FunctionRule{u"Var", 1, 1, Form::Aggregate, "ostrand_var"},
    FunctionRule{u"VarP", 1, 1, Form::Aggregate, "ostrand_varp"},
    FunctionRule{u"IIf", 3, 3, Form::Choice},
    FunctionRule{u"IsNull", 1, 1, Form::NullTest},
    FunctionRule{u"Nz", 1, 2, Form::NullReplacement},
    FunctionRule{u"Now", 0, 0, Form::Now},
    FunctionRule{u"Date", 0, 0, Form::Date},
    FunctionRule{u"Len", 1, 1, Form::Call, "ostrand_len"},
    FunctionRule{u"Mid", 2, 3, Form::Call, "ostrand_mid"},
    FunctionRule{u"Left", 2, 2, Form::Call, "ostrand_left"},
    FunctionRule{u"Right", 2, 2, Form::Call, "ostrand_right"},
    FunctionRule{u"UCase", 1, 1, Form::Call, "ostrand_ucase"},
    FunctionRule{u"LCase", 1, 1, Form::Call, "ostrand_lcase"},
    FunctionRule{u"Trim", 1, 1, Form::Call, "ostrand_trim"},
    FunctionRule{u"LTrim", 1, 1, Form::Call, "ostrand_ltrim"},
    FunctionRule{u"RTrim", 1, 1, Form::Call, "ostrand_rtrim"},
    FunctionRule{u"InStr", 2, 4, Form::Call, "ostrand_instr"},
    FunctionRule{u"Replace", 3, 6, Form::Call, "ostrand_replace"},
    FunctionRule{u"StrComp", 2, 3, Form::Call, "ostrand_strcomp"},
    FunctionRule{u"Asc", 1, 1, Form::Call, "ostrand_asc"},
    FunctionRule{u"Chr", 1, 1, Form::Call, "ostrand_chr"},
    FunctionRule{u"Val", 1, 1, Form::Call, "ostrand_val"},
    FunctionRule{u"Format", 1, 2, Form::Call, "ostrand_format"},
    FunctionRule{u"CStr", 1, 1, Form::Call, "ostrand_cstr"},
    FunctionRule{u"CLng", 1, 1, Form::Call, "ostrand_clng"},
    FunctionRule{u"CInt", 1, 1, Form::Call, "ostrand_cint"},
    FunctionRule{u"CDbl", 1, 1, Form::Call, "ostrand_cdbl"},
    FunctionRule{u"CBool", 1, 1, Form::Call, "ostrand_cbool"},
    FunctionRule{u"Int", 1, 1, Form::Call, "ostrand_int"},
    FunctionRule{u"Fix", 1, 1, Form::Call, "ostrand_fix"},
    FunctionRule{u"Abs", 1, 1, Form::Call, "ostrand_abs"},
    FunctionRule{u"Round", 1, 2, Form::Call, "ostrand_round"},
    FunctionRule{u"Year", 1, 1, Form::Call, "ostrand_year"},
    FunctionRule{u"Month", 1, 1, Form::Call, "ostrand_month"},
    FunctionRule{u"Day", 1, 1, Form::Call, "ostrand_day"},
};

QByteArray callOf(const FunctionRule& rule, const std::vector<Expression>& arguments)
{
    QByteArrayList values;
    for (const Expression& argument : arguments)
        values += argument.value();
    return rule.target + ('(' + values.join(", ") + ')');
}

} // namespace

const FunctionRule* findFunction(const QString& name)
{
    for (const FunctionRule& rule : rules) {
        if (name.compare(rule.name, Qt::CaseInsensitive) == 0)
            return &rule;
    }
    return nullptr;
}

bool isAggregate(const FunctionRule& rule)
{
    return rule.form == Form::Aggregate || rule.form == Form::Extreme;
}

Expression writeCall(const FunctionRule& rule, const std::vector<Expression>& arguments)
{
    switch (rule.form) {
    case Form::Extreme:
        return {rule.target + ('(' + arguments[0].collated() + ')')};
    case Form::Choice:
        return {"(CASE WHEN " + arguments[0].sql + " THEN " + arguments[1].value() + " ELSE "
                + arguments[2].value() + " END)"};
    case Form::NullTest:
        return {'(' + arguments[0].value() + " IS NULL)", true};
    case Form::NullReplacement:
        return {"coalesce(" + arguments[0].value() + ", "
                + (arguments.size() > 1 ? arguments[1].value() : QByteArray("''")) + ')'};
    case Form::Date:
        return {"date('now', 'localtime')"};
    case Form::Now:
        return {"ostrand_moment(datetime('now', 'localtime'))"};
    case Form::Call:
    case Form::Aggregate:
        break;
    }
    return {callOf(rule, arguments)};
}

} // namespace ostrand::store::sql
