#pragma once

#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "store/PlanMaker.h"
#include "store/Translator.h"

namespace rovanta {

/// An engine that speaks a dialect of its own: the way of a statement through the translator, which is the same for
/// all of these, and the catalogue that the translation rests on.
class TranslatingEngine : public Engine {
public:
    void Execute(std::string_view statement) override;
    RowSet Query(std::string_view select) override;
    Catalogue& Tables() override;

protected:
    explicit TranslatingEngine(const SqlDialect& dialect)
        : translator([&dialect](const ParsedStatement& statement) { return MakePlan(statement, dialect); })
    {
    }

    virtual RowSet ReadRows(const Plan& plan, const std::vector<Literal>& literals) = 0;
    virtual void Change(const Plan& plan, const std::vector<Literal>& literals) = 0;
    /// Makes or drops a table, a view or an index; several statements come to pass together or not at all.
    virtual void Define(const Plan& plan, const std::vector<Literal>& literals) = 0;
    virtual void Step(TransactionStep step) = 0;

    /// Reads the catalogue anew and hands it to TakeCatalogue.
    virtual void ReadCatalogue() = 0;
    /// Whether another desk is known to have changed the tables since this was last asked.
    virtual bool TakeNews() = 0;
    /// Whether an error may come of tables that are not what the catalogue says.
    virtual bool MayComeOfOldCatalogue(const DatabaseError&) const { return true; }
    /// Reads the catalogue anew where it may be old. Whether it was.
    virtual bool CatalogueWasOld() = 0;

    void TakeCatalogue(Catalogue read);

private:
    void WithFreshCatalogue(const std::function<void()>& work);
    void Run(const Plan& plan, const std::vector<Literal>& literals);
    RowSet TranslateAndRead(std::string_view select);

    Translator translator;
    Catalogue catalogue;
};

}
