#include "store/TranslatingEngine.h"

namespace rovanta {

void TranslatingEngine::Execute(std::string_view statement)
{
    WithFreshCatalogue([&] {
        const auto translated = translator.Translate(statement, catalogue);
        Run(*translated.plan, translated.literals);
    });
}

RowSet TranslatingEngine::Query(std::string_view select)
{
    RowSet rows;
    WithFreshCatalogue([&] {
        rows = TranslateAndRead(select);
        // Another desk has changed a table meanwhile: what the star stood for may be another list of columns now.
        if (!TakeNews())
            return;
        ReadCatalogue();
        rows = TranslateAndRead(select);
    });
    return rows;
}

RowSet TranslatingEngine::TranslateAndRead(std::string_view select)
{
    const auto translated = translator.Translate(select, catalogue);
    if (translated.plan->kind != PlanKind::Query)
        throw DatabaseError("Operation is not allowed when the object is closed: the statement returns no rows.");
    return ReadRows(*translated.plan, translated.literals);
}

Catalogue& TranslatingEngine::Tables()
{
    if (TakeNews())
        ReadCatalogue();
    return catalogue;
}

void TranslatingEngine::TakeCatalogue(Catalogue read)
{
    translator.Forget();
    catalogue = std::move(read);
}

/// Does the work; where it fails and another desk has changed the tables meanwhile, once more with the new ones.
void TranslatingEngine::WithFreshCatalogue(const std::function<void()>& work)
{
    if (TakeNews())
        ReadCatalogue();
    try {
        work();
    } catch (const DatabaseError& error) {
        if (!MayComeOfOldCatalogue(error) || !CatalogueWasOld())
            throw;
        work();
    }
}

void TranslatingEngine::Run(const Plan& plan, const std::vector<Literal>& literals)
{
    switch (plan.kind) {
    case PlanKind::Query:
        ReadRows(plan, literals);
        break;
    case PlanKind::Change:
        Change(plan, literals);
        break;
    case PlanKind::Definition:
        Define(plan, literals);
        break;
    case PlanKind::IdentityInsert:
        translator.SetIdentityInsert(plan.identityInsert.on ? plan.identityInsert.table : "");
        break;
    case PlanKind::Transaction:
        Step(plan.transaction);
        break;
    }
}

}
