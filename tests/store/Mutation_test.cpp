#include <doctest/doctest.h>

#include "store/Lexer.h"
#include "tests/store/CaseFile.h"
#include "tests/store/StatementTrial.h"

#include <random>

using namespace rovanta;

namespace {

/// The pieces of a statement with the blanks between them.
std::vector<std::string> Pieces(const std::string& statement)
{
    std::vector<std::string> pieces;
    try {
        const TokenList list = ReadTokens(statement);
        for (const Token& token : list.tokens)
            if (!token.text.empty())
                pieces.push_back(token.kind == TokenKind::Bracketed ? "[" + std::string(token.text) + "]"
                                                                    : std::string(token.text));
    } catch (const DatabaseError&) {
        pieces.push_back(statement);
    }
    return pieces;
}

class Mutator {
public:
    explicit Mutator(const CaseFile& file)
    {
        for (const StatementCase& one : file.cases)
            for (const CaseStep& step : one.steps)
                statements.push_back(Pieces(step.statement));
    }

    /// A statement of the office with pieces left out, doubled, exchanged, taken from others or broken.
    std::string Next()
    {
        std::vector<std::string> pieces = statements[Below(statements.size())];
        for (std::size_t i = 0, changes = 1 + Below(4); i < changes && !pieces.empty(); ++i)
            Change(pieces);
        std::string text;
        for (const std::string& piece : pieces)
            text += piece + (Below(20) == 0 ? "" : " ");
        if (!text.empty() && Below(8) == 0)
            text[Below(text.size())] = static_cast<char>(Below(256));
        return text;
    }

private:
    std::size_t Below(std::size_t bound) { return random() % bound; }

    void Change(std::vector<std::string>& pieces)
    {
        const std::size_t at = Below(pieces.size());
        const auto place = pieces.begin() + static_cast<std::ptrdiff_t>(at);
        const std::vector<std::string>& other = statements[Below(statements.size())];
        const std::string foreign = other[Below(other.size())];
        switch (Below(5)) {
        case 0:
            pieces.erase(place);
            break;
        case 1:
            pieces.insert(place, foreign);
            break;
        case 2:
            *place = foreign;
            break;
        case 3:
            std::swap(*place, pieces[Below(pieces.size())]);
            break;
        default:
            pieces.insert(place, 1 + Below(3), Below(2) == 0 ? "(" : ")");
        }
    }

    std::mt19937 random{20260302};
    std::vector<std::vector<std::string>> statements;
};

}

TEST_CASE("Statements out of shape are refused with a text, and nothing worse happens")
{
    const CaseFile file = ReadCaseFile(SOURCE_FOLDER "/tests/store/corpus.txt");
    TestOffice office;
    for (const std::string& statement : file.data)
        office.Execute(statement);
    const std::vector<std::string> before = RowsOf(office, "SELECT * FROM Tour");
    Mutator mutator(file);
    constexpr int trials = 4000;
    for (int i = 0; i < trials; ++i) {
        const std::string text = mutator.Next();
        CAPTURE(text);
        CHECK_NOTHROW(TryAnyText(office, text));
    }
    CHECK(RowsOf(office, "SELECT * FROM Tour") == before);
}

TEST_CASE("A statement nested without end is refused before the stack ends")
{
    TestOffice office;
    const auto repeated = [](const std::string& piece, int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += piece;
        return text;
    };
    constexpr int deep = 100'000;
    for (const std::string& text :
         {"SELECT " + repeated("(", deep), "SELECT " + repeated("-", 1) + repeated(" -", deep) + "1",
          "SELECT 1 AS A WHERE " + repeated("NOT ", deep) + "1 = 1", "SELECT " + repeated("1+", deep) + "1 AS A",
          "SELECT " + repeated("1*", deep) + "1 AS A", repeated("(", deep) + "SELECT 1 AS A",
          "SELECT * FROM " + repeated("(", deep) + "Tour", "SELECT " + repeated("ISNULL(", deep) + "1",
          "SELECT " + repeated("(SELECT ", deep) + "1"})
        CHECK_THROWS_AS(office.Open(text), DatabaseError);
    std::string keys = "1";
    for (int i = 0; i < 20'000; ++i)
        keys += "," + std::to_string(i);
    CHECK(office.Open("SELECT * FROM Tour WHERE ID IN (" + keys + ")").Eof());
}
