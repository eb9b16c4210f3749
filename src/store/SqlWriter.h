#pragma once

#include "store/Plan.h"
#include "store/SqlDialect.h"

namespace rovanta {

/// Writes the queries, changes and expressions of one bound statement in an engine's dialect, and gathers the
/// parameters on the way.
class SqlWriter {
public:
    SqlWriter(const ParsedStatement& statement, const SqlDialect& dialect) : statement(statement), dialect(dialect) {}

    /// Writes literals into the text from here on, where a statement cannot have parameters.
    void WriteLiteralsOut() { literalsOut = true; }

    /// What the rows of a query are for.
    enum class Use {
        /// The program reads them; those of one table bring their row's key behind the last column.
        Read,
        /// They go into a table.
        Fill,
        /// A statement around them uses them, in whatever order they come.
        Inside,
    };
    std::string QueryText(const Query& query, Use use);
    std::string InsertText(const InsertStatement& insert);
    std::string UpdateText(const UpdateStatement& update);
    std::string DeleteText(const DeleteStatement& deletion);

    std::vector<Parameter> TakeParameters() { return std::move(parameters); }

private:
    std::string SelectText(const Query& query, const Select& select, Use use);
    std::string OrderText(const Query& query, Use use);
    std::string LimitText(std::size_t literal);
    std::string SourceText(const Source& source);

    std::string Text(const Expression& expression);
    std::string Collated(const Expression& expression);
    std::string LiteralText(const Expression& expression);
    std::string AggregateText(const Expression& expression);
    std::string ConversionText(const Expression& expression);
    std::string ChainText(const Expression& expression, const char* sign);
    std::string InText(const Expression& expression, const std::string& list);
    std::string Listed(const std::vector<ExpressionPointer>& expressions, std::size_t from = 0);

    const ParsedStatement& statement;
    const SqlDialect& dialect;
    bool literalsOut = false;
    std::vector<Parameter> parameters;
};

}
