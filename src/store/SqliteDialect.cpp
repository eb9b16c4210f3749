#include "store/SqliteDialect.h"

#include "store/Conversion.h"
#include "values/Numbers.h"
#include "values/Text.h"

namespace rovanta {

std::string SqliteName(const std::string& name)
{
    return "[" + name + "]";
}

namespace {

std::string WithCollation(const std::string& text)
{
    return text + " COLLATE " + sqliteTextCollation;
}

/// Whether SQLite knows by itself to compare a text of that source by the collation: it is a column of a table.
bool HasCollation(const SourceColumn* source)
{
    return source != nullptr && source->column != nullptr && source->table->kind == TableKind::Table;
}

/// A number that SQLite takes for one with a fraction, though it may have none.
std::string WrittenNumber(double number)
{
    const std::string text = ToText(number);
    return text.find_first_of(".E") == std::string::npos ? text + ".0" : text;
}

class DialectOfSqlite : public SqlDialect {
public:
    std::string Name(const std::string& name) const override { return SqliteName(name); }
    std::string Mark(std::size_t parameter) const override { return "?" + std::to_string(parameter); }
    std::string Function(const char* name) const override { return name; }

    std::string Written(const Value& value, TypeKind) const override
    {
        if (value.IsNull())
            return "NULL";
        if (value.IsDate())
            return Quoted(ToLongIsoText(value.Date()));
        if (value.IsText())
            return Quoted(value.Text());
        if (const auto* flag = std::get_if<bool>(&value.Get()))
            return *flag ? "1" : "0";
        if (const auto* number = std::get_if<double>(&value.Get()))
            return WrittenNumber(*number);
        return value.Text();
    }

    std::string Collated(const Expression& expression, const std::string& text) const override
    {
        const bool wanting = expression.type.kind == TypeKind::Varchar && !HasCollation(expression.source);
        return wanting ? WithCollation(text) : text;
    }

    std::string Arithmetic(const Expression& expression, const std::string& left,
                           const std::string& right) const override
    {
        const TypeKind kind = expression.type.kind;
        std::string text;
        if (kind == TypeKind::Varchar)
            return "(" + left + " || " + right + ")";
        // SQLite gives NULL for a division by zero and takes money with no cents for a whole number.
        if (expression.name == "/")
            text = std::string(IsWhole(kind) ? "divide_whole(" : "divide(") + left + ", " + right + ")";
        else if (expression.name == "%")
            text = "remainder(" + left + ", " + right + ")";
        else
            text = "(" + left + " " + expression.name + " " + right + ")";
        return kind == TypeKind::Money ? "as_money(" + text + ")" : text;
    }

    std::string Aggregate(const Expression& expression, const std::string& text) const override
    {
        const TypeKind kind = expression.type.kind;
        if (expression.aggregate == AggregateKind::Average && IsWhole(kind))
            return "cast(" + text + " AS INTEGER)";
        const bool adds = expression.aggregate == AggregateKind::Sum || expression.aggregate == AggregateKind::Average;
        return adds && kind == TypeKind::Money ? "as_money(" + text + ")" : text;
    }

    std::string Conversion(const std::string& text, TypeKind from, const SqlType& to,
                           const std::string& place) const override
    {
        if (to.kind == TypeKind::Bit && IsNumber(from))
            return "(" + text + " <> 0)";
        if (to.kind == TypeKind::Money && IsNumber(from))
            return "as_money(" + text + ")";
        if (!place.empty() && from == TypeKind::Varchar)
            return "fit_text(" + text + ", " + std::to_string(to.length) + ", " + Quoted(place) + ")";
        return "convert_type(" + text + ", " + std::to_string(static_cast<int>(from)) + ", " +
               std::to_string(static_cast<int>(to.kind)) + ", " + std::to_string(to.length) + ")";
    }

    std::string Like(const Expression&, const std::string& text, const std::string& pattern) const override
    {
        return "is_like(" + text + ", " + pattern + ")";
    }

    std::string RowKey(const std::string& alias, const TableInfo&) const override
    {
        return SqliteName(alias) + ".rowid";
    }

    std::string LimitedMember(const std::string& select) const override
    {
        // A member of a UNION cannot bear a LIMIT by itself.
        return "SELECT * FROM (" + select + ")";
    }

    std::string OrderItemText(const Query& query, const OrderItem& item, const std::string& text) const override
    {
        const char* direction = item.descending ? " DESC" : "";
        if (item.position == 0)
            return text + direction;
        const SourceColumn& column = query.columns[item.position - 1];
        const bool wanting = column.type.kind == TypeKind::Varchar && !HasCollation(&column);
        return (wanting ? WithCollation(text) : text) + direction;
    }

    std::string ColumnDefinition(const ColumnInfo& column) const override
    {
        if (column.identity)
            return SqliteName(column.name) + " INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL";
        // The declared type stays the dialect's own word, so that the catalogue can be read back from the database.
        std::string text = SqliteName(column.name) + " " + TypeDeclaration(column.type);
        if (column.type.kind == TypeKind::Varchar)
            text = WithCollation(text);
        return column.nullable ? text : text + " NOT NULL";
    }

    std::string IndexedColumn(const std::string& column) const override { return SqliteName(column); }
};

}

const SqlDialect& SqliteDialect()
{
    static const DialectOfSqlite dialect;
    return dialect;
}

}
