#pragma once

#include "store/Plan.h"

#include <functional>
#include <unordered_map>

namespace rovanta {

/// Turns statements into plans of one engine, and remembers the plan of each shape.
class Translator {
public:
    /// Writes a bound statement in the engine's language.
    using Emitter = std::function<Plan(const ParsedStatement&)>;

    explicit Translator(Emitter emit) : emit(std::move(emit)) {}

    /// The plan of a statement and the literals to run it with. Throws DatabaseError.
    struct Result {
        std::shared_ptr<const Plan> plan;
        std::vector<Literal> literals;
    };
    Result Translate(std::string_view statement, Catalogue& catalogue);

    /// Plans rest on the catalogue and on this setting; a change of either makes them void.
    void Forget() { plans.clear(); }
    void SetIdentityInsert(const std::string& table);

private:
    std::shared_ptr<const Plan> Remembered(const std::string& shape, const std::vector<Literal>& literals) const;

    Emitter emit;
    std::string identityInsertTable;
    std::unordered_map<std::string, std::vector<std::shared_ptr<const Plan>>> plans;
};

}
