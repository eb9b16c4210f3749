#include "store/PostgresDialect.h"

#include "store/DatabaseError.h"
#include "values/Numbers.h"
#include "values/Text.h"

#include <algorithm>

namespace rovanta {

std::string PostgresName(const std::string& name)
{
    constexpr std::size_t longestName = 63;
    if (name.size() > longestName)
        throw DatabaseError("The identifier that starts with '" + name.substr(0, 30) +
                            "' is too long. Maximum length is 63.");
    return "\"" + Replace(name, "\"", "\"\"") + "\"";
}

namespace {

/// The type that an expression of that kind has.
const char* TypeOfExpression(TypeKind kind)
{
    switch (kind) {
    case TypeKind::Bit:
        return "int2";
    case TypeKind::Int:
        return "int4";
    case TypeKind::BigInt:
        return "int8";
    case TypeKind::Money:
        return "numeric";
    case TypeKind::Decimal:
    case TypeKind::Float:
        return "float8";
    case TypeKind::DateTime:
        return "timestamp";
    case TypeKind::Varchar:
    case TypeKind::Unknown:
        break;
    }
    return "bpchar";
}

/// The type of a column: the program's own word where the server has none of that meaning.
std::string TypeOfColumn(const SqlType& type)
{
    switch (type.kind) {
    case TypeKind::Varchar:
        return "rovanta.\"" + TypeDeclaration(type) + "\"";
    case TypeKind::Bit:
        return "rovanta.bit";
    case TypeKind::Money:
        return "rovanta.money";
    case TypeKind::DateTime:
        return "timestamp(0)";
    default:
        return TypeOfExpression(type.kind);
    }
}

std::string AsMoney(const std::string& text)
{
    return "round((" + text + ")::numeric, 4)";
}

std::string TextToText(const std::string& text, const SqlType& to, const std::string& place)
{
    if (place.empty())
        return "rovanta.cut_text(" + text + ", " + std::to_string(to.length) + ")";
    return "rovanta.fit_text(" + text + ", " + std::to_string(to.length) + ", " + SqlDialect::Quoted(place) + ")";
}

std::string TextToOther(const std::string& text, TypeKind to)
{
    const std::string type = SqlDialect::Quoted(std::string(TypeName(to)));
    switch (to) {
    case TypeKind::Bit:
        return "rovanta.text_to_bit(" + text + ")";
    case TypeKind::Money:
        return "rovanta.text_to_money(" + text + ")";
    case TypeKind::DateTime:
        return "rovanta.text_to_datetime(" + text + ")";
    case TypeKind::Int:
    case TypeKind::BigInt:
        return "rovanta.text_to_whole(" + text + ", " + type + ")";
    default:
        return "rovanta.text_to_float(" + text + ", " + type + ")";
    }
}

std::string OtherToText(const std::string& text, TypeKind from, int length)
{
    const char* function = from == TypeKind::Money      ? "money_to_text"
                           : from == TypeKind::DateTime ? "datetime_to_text"
                           : IsWhole(from)              ? "whole_to_text"
                                                        : "float_to_text";
    return std::string("rovanta.") + function + "(" + text + ", " + std::to_string(length) + ")";
}

/// Whether an item of the order can be NULL; where it cannot, an index of any kind serves the order.
bool MayBeNull(const Query& query, const OrderItem& item)
{
    const Select& select = query.members.front();
    if (query.members.size() > 1 || !select.from || select.from->kind != SourceKind::Table)
        return true;
    const Expression& expression = item.position == 0 ? *item.expression : *select.items[item.position - 1].expression;
    return expression.source == nullptr || expression.source->column == nullptr || expression.source->column->nullable;
}

bool HasAggregate(const Expression& expression)
{
    return expression.kind == ExpressionKind::Aggregate ||
           std::any_of(expression.operands.begin(), expression.operands.end(),
                       [](const ExpressionPointer& operand) { return HasAggregate(*operand); });
}

/// A table that numbers its rows finds them by the number; another by the place where the row's version lies.
std::string KeyOfRow(const std::string& alias, const TableInfo& table)
{
    const ColumnInfo* identity = table.Identity();
    return PostgresName(alias) + "." + (identity != nullptr ? PostgresName(identity->name) : "ctid");
}

/// The keys of the tables that the rows come from, the left one first. A view and a query in brackets have none, and
/// where `numbered` tables alone are wanted, those without an identity have none either.
void AddRowKeys(const Source& source, bool numbered, std::vector<std::string>& keys)
{
    if (source.kind == SourceKind::Join) {
        AddRowKeys(*source.left, numbered, keys);
        AddRowKeys(*source.right, numbered, keys);
    } else if (source.kind == SourceKind::Table && source.columns.front().table->kind == TableKind::Table) {
        const TableInfo& table = *source.columns.front().table;
        if (table.Identity() != nullptr || !numbered)
            keys.push_back(KeyOfRow(source.alias, table));
    }
}

class DialectOfPostgres : public SqlDialect {
public:
    std::string Name(const std::string& name) const override { return PostgresName(name); }
    std::string Mark(std::size_t parameter) const override { return "$" + std::to_string(parameter); }
    std::string Function(const char* name) const override { return std::string("rovanta.") + name; }

    std::string Written(const Value& value, TypeKind kind) const override
    {
        if (value.IsNull() && kind == TypeKind::Unknown)
            return "NULL";
        const std::string type = std::string("::") + TypeOfExpression(kind);
        if (value.IsNull())
            return "NULL" + type;
        if (const auto* flag = std::get_if<bool>(&value.Get()))
            return std::string(*flag ? "'1'" : "'0'") + type;
        return Quoted(value.IsDate() ? ToLongIsoText(value.Date()) : value.Text()) + type;
    }

    std::string Collated(const Expression& expression, const std::string& text) const override
    {
        // A column brings the collation of its table, or of the query behind it, with it.
        if (expression.type.kind != TypeKind::Varchar || expression.kind == ExpressionKind::Column)
            return text;
        return "(" + text + " COLLATE rovanta.words)";
    }

    std::string Arithmetic(const Expression& expression, const std::string& left,
                           const std::string& right) const override
    {
        const TypeKind kind = expression.type.kind;
        if (kind == TypeKind::Varchar)
            return "rovanta.joined(" + left + ", " + right + ")";
        std::string text;
        if (expression.name == "%" && !IsWhole(kind))
            text = "rovanta.remainder(" + left + ", " + right + ")";
        else
            text = "(" + left + " " + expression.name + " " + right + ")";
        return kind == TypeKind::Money ? AsMoney(text) : text;
    }

    std::string Aggregate(const Expression& expression, const std::string& text) const override
    {
        const bool adds = expression.aggregate == AggregateKind::Sum || expression.aggregate == AggregateKind::Average;
        // Sums of whole numbers come as numbers of any size, averages with a fraction.
        if (adds && IsWhole(expression.type.kind))
            return "trunc(" + text + ")::int8";
        return adds && expression.type.kind == TypeKind::Money ? AsMoney(text) : text;
    }

    std::string Conversion(const std::string& text, TypeKind from, const SqlType& to,
                           const std::string& place) const override
    {
        if (to.kind == TypeKind::Varchar)
            return from == TypeKind::Varchar ? TextToText(text, to, place) : OtherToText(text, from, to.length);
        if (from == TypeKind::Varchar)
            return TextToOther(text, to.kind);
        switch (to.kind) {
        case TypeKind::Bit:
            return "(" + text + " <> 0)::int4::int2";
        case TypeKind::Money:
            return AsMoney(text);
        case TypeKind::DateTime:
            return "rovanta.days_to_datetime(" + text + ")";
        case TypeKind::Int:
        case TypeKind::BigInt:
            // Money is rounded, another number cut.
            return std::string(from == TypeKind::Money ? "round(" : "trunc(") + text +
                   ")::" + TypeOfExpression(to.kind);
        default:
            return text;
        }
    }

    std::string Like(const Expression& expression, const std::string& text, const std::string& pattern) const override
    {
        const std::string worked = "rovanta.like_pattern(" + pattern + ")";
        // The pattern of a literal is worked out once and not for every row.
        const bool once = expression.operands[1]->kind == ExpressionKind::Literal;
        return "rovanta.is_like(" + text + ", " + (once ? "(SELECT " + worked + ")" : worked) + ")";
    }

    std::string RowKey(const std::string& alias, const TableInfo& table) const override
    {
        return KeyOfRow(alias, table);
    }

    std::string LimitedMember(const std::string& select) const override { return "(" + select + ")"; }

    std::string OrderItemText(const Query& query, const OrderItem& item, const std::string& text) const override
    {
        const char* nulls = !MayBeNull(query, item) ? "" : item.descending ? " NULLS LAST" : " NULLS FIRST";
        return text + (item.descending ? " DESC" : "") + nulls;
    }

    /// As a table clustered by its key gives its rows. This server would give a row that was changed behind all others.
    std::vector<std::string> TieBreakers(const Query& query) const override
    {
        std::vector<std::string> keys;
        const Select& select = query.members.front();
        const bool grouped = !select.groupBy.empty() || select.having ||
                             std::any_of(select.items.begin(), select.items.end(),
                                         [](const SelectItem& item) { return HasAggregate(*item.expression); });
        if (query.members.size() > 1 || select.distinct) {
            if (!query.unionAll)
                for (std::size_t i = 1; i <= query.columns.size(); ++i)
                    keys.push_back(std::to_string(i) + " NULLS FIRST");
        } else if (grouped) {
            for (const ExpressionPointer& key : select.groupBy)
                if (key->kind == ExpressionKind::Column)
                    keys.push_back(PostgresName(key->qualifier) + "." + PostgresName(key->name) + " NULLS FIRST");
        } else if (select.from) {
            // The first row of all is found without a look at the others.
            const bool anyRow = select.top && query.orderBy.empty();
            AddRowKeys(*select.from, anyRow, keys);
        }
        return keys;
    }

    std::string ColumnDefinition(const ColumnInfo& column) const override
    {
        const std::string text = PostgresName(column.name) + " " + TypeOfColumn(column.type);
        if (column.identity)
            return text + " GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY";
        return column.nullable ? text : text + " NOT NULL";
    }

    std::string IndexedColumn(const std::string& column) const override
    {
        // NULLs lie where an ascending ORDER BY wants them, so that an index can serve it.
        return PostgresName(column) + " NULLS FIRST";
    }

    std::string NeededFirst(const ColumnInfo& column) const override
    {
        const bool limited = column.type.kind == TypeKind::Varchar && column.type.length > 0;
        return limited ? "SELECT rovanta.need_varchar(" + std::to_string(column.type.length) + ")" : "";
    }
};

}

const SqlDialect& PostgresDialect()
{
    static const DialectOfPostgres dialect;
    return dialect;
}

}
