#pragma once

#include "store/Plan.h"

namespace rovanta {

/// Writes the queries and expressions of one bound statement as PostgreSQL takes them, and gathers the parameters on
/// the way.
class PostgresWriter {
public:
    explicit PostgresWriter(const ParsedStatement& statement) : statement(statement) {}

    /// Writes literals into the text from here on, where a statement cannot have parameters.
    void WriteLiteralsOut() { literalsOut = true; }

    /// A query whose rows the program reads; those of one table bring their row's key behind the last column.
    std::string TopQuery(const Query& query);
    /// A query whose rows go into a table, its columns under their names.
    std::string FillingQuery(const Query& query);
    /// A query inside a statement, its columns under their names.
    std::string QueryText(const Query& query);
    std::string InsertText(const InsertStatement& insert);
    std::string UpdateText(const UpdateStatement& update);
    std::string DeleteText(const DeleteStatement& deletion);

    std::vector<Parameter> TakeParameters() { return std::move(parameters); }

private:
    enum class ColumnNames { Written, Left };
    enum class Ties { Settled, Left };

    std::string Members(const Query& query, ColumnNames names, Ties ties, const std::string& rowKey);
    std::string SelectText(const Select& select, ColumnNames names, const std::string& rowKey);
    std::string OrderText(const Query& query, Ties ties);
    std::string LimitText(std::size_t literal);
    std::string SourceText(const Source& source);

    std::string Text(const Expression& expression);
    /// The expression as a text that is compared, sorted or grouped: with the collation where it has none of its own.
    std::string Collated(const Expression& expression);
    std::string LiteralText(const Expression& expression);
    std::string ArithmeticText(const Expression& expression);
    std::string AggregateText(const Expression& expression);
    std::string ConversionText(const Expression& operand, const SqlType& to, const std::string& place);
    std::string TextToText(const std::string& text, const SqlType& to, const std::string& place);
    std::string ToVarchar(const std::string& text, TypeKind from, int length);
    std::string CompareText(const Expression& expression);
    std::string ChainText(const Expression& expression, const char* sign);
    std::string InText(const Expression& expression);
    std::string InQueryText(const Expression& expression);
    std::string LikeText(const Expression& expression);
    std::string Listed(const std::vector<ExpressionPointer>& expressions);

    const ParsedStatement& statement;
    bool literalsOut = false;
    std::vector<Parameter> parameters;
};

}
