#include "store/Translator.h"

#include "store/Binder.h"
#include "store/Lexer.h"
#include "store/Parser.h"

namespace rovanta {

std::shared_ptr<const Plan> Translator::Remembered(const std::string& shape, const std::vector<Literal>& literals) const
{
    const auto found = plans.find(shape);
    if (found == plans.end())
        return nullptr;
    for (const auto& plan : found->second)
        if (plan->Fits(literals))
            return plan;
    return nullptr;
}

Translator::Result Translator::Translate(std::string_view text, Catalogue& catalogue)
{
    TokenList tokens = ReadTokens(text);
    if (auto plan = Remembered(tokens.shape, tokens.literals))
        return {std::move(plan), std::move(tokens.literals)};
    const std::string shape = tokens.shape;
    ParsedStatement statement = ParseStatement(std::move(tokens));
    BindStatement(statement, catalogue, identityInsertTable);
    auto plan = std::make_shared<Plan>(emit(statement));
    for (const std::size_t literal : statement.fixedLiterals)
        plan->fixed.push_back({literal, statement.literals[literal].text});
    if (plan->kind == PlanKind::Query || plan->kind == PlanKind::Change) {
        // The program's statements are few; only lists of keys and searches put together make ever new shapes.
        constexpr std::size_t mostShapes = 500;
        if (plans.size() >= mostShapes)
            plans.clear();
        plans[shape].push_back(plan);
    }
    return {std::move(plan), std::move(statement.literals)};
}

void Translator::SetIdentityInsert(const std::string& table)
{
    identityInsertTable = table;
    Forget();
}

}
