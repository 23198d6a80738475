// The members of MorvaneDoc by their names on the bus: what each takes and gives, and the call.
#pragma once
#include <QString>
#include <QVariantList>
#include <span>
#include <vector>

#include "automation/MorvaneDoc.h"

namespace morvane {

using BusArguments = std::vector<Variant>;
using BusReply = Raised<QVariantList>;

struct DocMethod {
    const char* Name;
    std::vector<const char*> Inputs; // names; each is a variant
    std::size_t Required; // of the inputs, the first so many
    std::vector<std::pair<const char*, const char*>> Outputs; // name and type
    BusReply (*Call)(MorvaneDoc& On, const BusArguments& Arguments);
};

struct DocProperty {
    const char* Name;
    const char* Type; // as read; anything may be assigned
    Raised<QVariant> (*Get)(const MorvaneDoc& Of);
    Raised<bool> (*Set)(MorvaneDoc& Of, const Variant& Value); // nullptr: it can only be read
};

std::span<const DocMethod> DocMethods();
std::span<const DocProperty> DocProperties();
// nullptr if there is none of the name.
const DocMethod* FindDocMethod(const QString& Name);
const DocProperty* FindDocProperty(const QString& Name);

// The interface as introspection shows it.
QString DocInterfaceXml();

} // namespace morvane
