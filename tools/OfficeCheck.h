#pragma once

#include "frame/Configuration.h"
#include "store/Connection.h"
#include "tools/Findings.h"

namespace rovanta {

/// Looks through an office for rows that lost their owner, figures that no longer agree, files that are missing and
/// texts that would break a statement. Changes nothing. Every kind has its group, an empty one where all is well.
/// Throws DatabaseError.
std::vector<FindingGroup> CheckOffice(Connection& connection, const Configuration& configuration);

}
