#pragma once

#include "store/Tree.h"

namespace rovanta {

/// The binder at work on one statement.
class BinderState {
public:
    BinderState(ParsedStatement& statement, Catalogue& catalogue, const std::string& identityInsertTable)
        : statement(statement), catalogue(catalogue), identityInsertTable(identityInsertTable)
    {
    }

    void Bind();

private:
    /// The sources that columns of one SELECT can come from; a query in brackets also sees those around it.
    struct Scope {
        std::vector<Source*> sources;
        const Scope* outer = nullptr;
        bool aggregatesAllowed = false;
        bool aggregated = false;
    };

    // Statements
    void BindInsert(InsertStatement& insert);
    std::vector<const ColumnInfo*> InsertColumns(InsertStatement& insert) const;
    void BindUpdate(UpdateStatement& update);
    void BindDelete(DeleteStatement& deletion);
    void BindIndex(CreateIndexStatement& index);
    void BindView(CreateViewStatement& view);
    void BindDrop(DropStatement& drop) const;
    void RefuseTakenName(const std::string& name) const;
    TablePointer FindTable(const std::string& name) const;
    TablePointer FindTableToChange(const std::string& name) const;
    std::unique_ptr<Source> TargetSource(const std::string& table) const;

    // Queries
    void BindWholeQuery(Query& query);
    void BindQuery(Query& query, const Scope* outer);
    void BindSelect(Select& select, const Scope* outer, Query* ordered);
    void BindSource(Source& source, Scope& scope);
    void BindSingleSource(Source& source, Scope& scope);
    void ExpandStars(Select& select, const Scope& scope) const;
    void BindOrder(Query& query, const Select& select, Scope& scope, bool grouped);
    std::size_t NamedPosition(const Expression& expression, const Select& select);
    void UnifyMembers(Query& query);
    static std::vector<SourceColumn> ResultColumns(const Select& select);
    static TablePointer UpdatableTable(const Query& query);
    void CheckGrouped(const Expression& expression, const Select& select, const Scope& scope);
    bool Same(const Expression& a, const Expression& b);

    // Expressions
    void BindExpression(ExpressionPointer& expression, Scope& scope);
    void BindColumn(Expression& expression, const Scope& scope) const;
    void BindArithmetic(Expression& expression);
    void BindAggregate(Expression& expression, Scope& scope);
    void BindCast(ExpressionPointer& expression);
    void BindComparison(Expression& expression);
    void BindInQuery(Expression& expression, Scope& scope);
    void BindSubquery(Expression& expression, const Scope& scope);
    void BindIsNullFunction(Expression& expression);
    static void ConvertTo(ExpressionPointer& expression, const SqlType& type, const std::string& place = {});
    static void AssignTo(ExpressionPointer& expression, const TableInfo& table, const ColumnInfo& column);

    ParsedStatement& statement;
    Catalogue& catalogue;
    const std::string& identityInsertTable;
};

/// The name by which a column is asked for, as error texts tell it: "Tour.ID" or "ID".
std::string FullName(const Expression& column);

}
