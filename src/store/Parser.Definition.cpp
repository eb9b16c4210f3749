#include "store/DatabaseError.h"
#include "store/ParserState.h"
#include "values/Text.h"

namespace rovanta {

StatementTree ParserState::Create()
{
    if (TakeWord("TABLE"))
        return CreateTable();
    if (TakeWord("VIEW")) {
        CreateViewStatement view;
        view.view = TakeTableName();
        ExpectWord("AS");
        view.query = ReadQuery();
        return view;
    }
    const bool unique = TakeWord("UNIQUE");
    ExpectWord("INDEX");
    return CreateIndex(unique);
}

CreateTableStatement ParserState::CreateTable()
{
    CreateTableStatement table;
    table.table = TakeTableName();
    ExpectSymbol("(");
    do {
        TableElement(table);
    } while (TakeSymbol(","));
    ExpectSymbol(")");
    StorageOptions();
    return table;
}

void ParserState::TableElement(CreateTableStatement& table)
{
    if (TakeWord("CONSTRAINT")) {
        TakeName();
        PrimaryKeyConstraint(table);
        return;
    }
    if (PeekWord("PRIMARY")) {
        PrimaryKeyConstraint(table);
        return;
    }
    ColumnInfo column;
    column.name = TakeName();
    column.type = Type(1);
    ColumnOptions(table, column);
    table.columns.push_back(std::move(column));
}

void ParserState::ColumnOptions(CreateTableStatement& table, ColumnInfo& column)
{
    while (true) {
        if (TakeWord("IDENTITY")) {
            column.identity = true;
            column.nullable = false;
            if (TakeSymbol("(")) {
                const Token& start = Peek();
                const bool fromOne = TakeFixedNumber() == 1;
                ExpectSymbol(",");
                // Numbers that begin or step otherwise have no use here and no counterpart on every engine.
                if (TakeFixedNumber() != 1 || !fromOne)
                    FailAt(start);
                ExpectSymbol(")");
            }
        } else if (TakeWord("NOT")) {
            ExpectWord("NULL");
            column.nullable = false;
        } else if (TakeWord("PRIMARY")) {
            ExpectWord("KEY");
            if (!table.primaryKey.empty())
                throw DatabaseError("Cannot add multiple PRIMARY KEY constraints to table '" + table.table + "'.");
            if (!TakeWord("CLUSTERED"))
                TakeWord("NONCLUSTERED");
            column.nullable = false;
            table.primaryKey.push_back(column.name);
        } else if (!TakeWord("NULL")) {
            return;
        }
    }
}

void ParserState::PrimaryKeyConstraint(CreateTableStatement& table)
{
    ExpectWord("PRIMARY");
    ExpectWord("KEY");
    if (!table.primaryKey.empty())
        throw DatabaseError("Cannot add multiple PRIMARY KEY constraints to table '" + table.table + "'.");
    if (!TakeWord("CLUSTERED"))
        TakeWord("NONCLUSTERED");
    table.primaryKey = KeyColumns();
    StorageOptions();
}

/// WITH (...) and ON [PRIMARY]: how the original engine lays a table out, which means nothing to another.
void ParserState::StorageOptions()
{
    if (TakeWord("WITH")) {
        ExpectSymbol("(");
        do {
            TakeName();
            ExpectSymbol("=");
            if (!TakeWord("ON") && !TakeWord("OFF"))
                TakeFixedNumber();
        } while (TakeSymbol(","));
        ExpectSymbol(")");
    }
    if (TakeWord("ON") && !TakeWord("PRIMARY"))
        TakeName();
}

CreateIndexStatement ParserState::CreateIndex(bool unique)
{
    CreateIndexStatement index;
    index.unique = unique;
    index.index = TakeName();
    ExpectWord("ON");
    index.table = TakeTableName();
    index.columns = KeyColumns();
    return index;
}

/// The columns of a key in brackets. Which way each is sorted changes no result.
std::vector<std::string> ParserState::KeyColumns()
{
    std::vector<std::string> columns;
    ExpectSymbol("(");
    do {
        columns.push_back(TakeName());
        if (!TakeWord("DESC"))
            TakeWord("ASC");
    } while (TakeSymbol(","));
    ExpectSymbol(")");
    return columns;
}

DropStatement ParserState::Drop()
{
    DropStatement drop;
    if (TakeWord("VIEW"))
        drop.kind = TableKind::View;
    else
        ExpectWord("TABLE");
    drop.name = TakeTableName();
    return drop;
}

SqlType ParserState::Type(int lengthUntold)
{
    const Token& word = Peek();
    if (word.kind != TokenKind::Word && word.kind != TokenKind::Bracketed)
        FailHere();
    const auto kind = FindTypeKind(word.text);
    if (!kind)
        throw DatabaseError("Cannot find data type " + std::string(word.text) + ".");
    ++at;
    SqlType type{*kind};
    if (*kind != TypeKind::Varchar)
        return type;
    type.length = lengthUntold;
    if (!TakeSymbol("("))
        return type;
    if (TakeWord("MAX")) {
        type.length = 0;
    } else {
        const Token& length = Peek();
        type.length = TakeFixedNumber();
        constexpr int longest = 8000;
        if (type.length < 1 || type.length > longest)
            FailAt(length);
    }
    ExpectSymbol(")");
    return type;
}

}
