// The test plug-ins, one library for each definition: NO_FUNCTION, OLD_VERSION, INCOMPLETE,
// REFUSES, THROWS cannot be created; SCRIPTED does as it is told.
#include "plugins/TestPlugin.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "platform/Grabber.h"

namespace {

morvane::TestPluginScript script;

void noteCall(const char* name)
{
    script.Calls += std::string(name) + " ";
    if (script.Throws)
        throw std::runtime_error("thrown by a plug-in");
}

[[maybe_unused]] void grab(void*, std::uint8_t* frame, std::int32_t* bytes, MorvaneBoolean* success)
{
    noteCall("grab");
    const auto count = std::min<std::size_t>(static_cast<std::size_t>(*bytes), script.Frame.size());
    std::copy_n(script.Frame.begin(), count, frame);
    *bytes = static_cast<std::int32_t>(count) + script.Claimed;
    *success = script.Success ? MORVANE_TRUE : MORVANE_FALSE;
}

template <auto Member, typename Value>
void tell(void*, Value* value)
{
    if (script.Throws)
        throw 5;
    *value = static_cast<Value>(script.*Member);
}

using morvane::TestPluginScript;

const MorvaneGrabber table = {
#ifdef OLD_VERSION
    .Version = MORVANE_GRABBER_VERSION - 1,
#else
    .Version = MORVANE_GRABBER_VERSION,
#endif
    .Size = sizeof(MorvaneGrabber),
    .Context = nullptr,
    .Release = [](void*) { script.Calls += "release "; },
    .Position1 = nullptr,
    .Position2 = nullptr,
    .Position3 = nullptr,
    .Position4 = nullptr,
    .GetFrameBytes = tell<&TestPluginScript::Bytes>,
    .Position6 = nullptr,
    .Position7 = nullptr,
    .Position8 = nullptr,
    .GetWidth = tell<&TestPluginScript::Width>,
    .Position10 = nullptr,
    .GetHeight = tell<&TestPluginScript::Height>,
    .Position12 = nullptr,
    .GetHasProperties = tell<&TestPluginScript::HasProperties>,
    .Position14 = nullptr,
    .GetReady = tell<&TestPluginScript::Ready>,
    .Close = [](void*) { noteCall("close"); },
#ifdef INCOMPLETE
    .Grab = nullptr,
#else
    .Grab = grab,
#endif
    .ShowProperties =
        [](void*) {
            noteCall("properties");
            if (script.OnProperties)
                script.OnProperties();
        },
};

} // namespace

extern "C" MORVANE_GRABBER_EXPORT morvane::TestPluginScript* GetTestScript()
{
    return &script;
}

#ifndef NO_FUNCTION
const MorvaneGrabber* MorvaneCreateGrabber(
    [[maybe_unused]] char* Reason, [[maybe_unused]] std::int32_t ReasonBytes)
{
#if defined(REFUSES)
    std::snprintf(Reason, static_cast<std::size_t>(ReasonBytes), "no card in any slot");
    return nullptr;
#elif defined(THROWS)
    throw std::runtime_error("thrown at creation");
#else
    script.Calls += "create ";
    return &table;
#endif
}
#endif
