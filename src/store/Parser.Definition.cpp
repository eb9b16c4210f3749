#include "store/DatabaseError.h"
#include "store/ParserState.h"
#include "values/Text.h"

namespace rovanta {

StatementTree ParserState::Create()
{
    if (TakeWord(Keyword::Table))
        return CreateTable();
    if (TakeWord(Keyword::View)) {
        CreateViewStatement view;
        view.view = TakeTableName();
        ExpectWord(Keyword::As);
        view.query = ReadQuery();
        return view;
    }
    const bool unique = TakeWord(Keyword::Unique);
    ExpectWord(Keyword::Index);
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
    if (TakeWord(Keyword::Constraint)) {
        TakeName();
        PrimaryKeyConstraint(table);
        return;
    }
    if (PeekWord(Keyword::Primary)) {
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
        if (TakeWord(Keyword::Identity)) {
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
        } else if (TakeWord(Keyword::Not)) {
            ExpectWord(Keyword::Null);
            column.nullable = false;
        } else if (TakeWord(Keyword::Primary)) {
            ExpectWord(Keyword::Key);
            if (!table.primaryKey.empty())
                throw DatabaseError("Cannot add multiple PRIMARY KEY constraints to table '" + table.table + "'.");
            if (!TakeWord(Keyword::Clustered))
                TakeWord(Keyword::Nonclustered);
            column.nullable = false;
            table.primaryKey.push_back(column.name);
        } else if (!TakeWord(Keyword::Null)) {
            return;
        }
    }
}

void ParserState::PrimaryKeyConstraint(CreateTableStatement& table)
{
    ExpectWord(Keyword::Primary);
    ExpectWord(Keyword::Key);
    if (!table.primaryKey.empty())
        throw DatabaseError("Cannot add multiple PRIMARY KEY constraints to table '" + table.table + "'.");
    if (!TakeWord(Keyword::Clustered))
        TakeWord(Keyword::Nonclustered);
    table.primaryKey = KeyColumns();
    StorageOptions();
}

/// WITH (...) and ON [PRIMARY]: how the original engine lays a table out, which means nothing to another.
void ParserState::StorageOptions()
{
    if (TakeWord(Keyword::With)) {
        ExpectSymbol("(");
        do {
            TakeName();
            ExpectSymbol("=");
            if (!TakeWord(Keyword::On) && !TakeWord(Keyword::Off))
                TakeFixedNumber();
        } while (TakeSymbol(","));
        ExpectSymbol(")");
    }
    if (TakeWord(Keyword::On) && !TakeWord(Keyword::Primary))
        TakeName();
}

CreateIndexStatement ParserState::CreateIndex(bool unique)
{
    CreateIndexStatement index;
    index.unique = unique;
    index.index = TakeName();
    ExpectWord(Keyword::On);
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
        if (!TakeWord(Keyword::Desc))
            TakeWord(Keyword::Asc);
    } while (TakeSymbol(","));
    ExpectSymbol(")");
    return columns;
}

DropStatement ParserState::Drop()
{
    DropStatement drop;
    if (TakeWord(Keyword::View))
        drop.kind = TableKind::View;
    else
        ExpectWord(Keyword::Table);
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
    if (EqualNoCase(Peek().text, "MAX")) {
        ++at;
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
