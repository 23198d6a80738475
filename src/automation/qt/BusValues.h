// The one place where values of the bus become values of scripts.
#pragma once
#include <QVariant>

#include "automation/Variant.h"

namespace morvane {

// An argument, wrapped in a variant of the bus or not. Whole numbers of all sizes become
// std::int64_t (beyond its range double), arrays of numbers, also as variants of mixed types,
// std::vector<double>. Anything else (dictionaries, structures, arrays with texts in them) becomes
// std::monostate.
Variant FromBus(const QVariant& Value);

} // namespace morvane
