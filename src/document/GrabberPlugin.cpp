#include "document/GrabberPlugin.h"

#include <array>
#include <cstddef>
#include <exception>

#include "platform/DynamicLibrary.h"

namespace morvane {

namespace {

// The table is an agreement on places.
constexpr std::size_t placeOf(int position)
{
    return offsetof(MorvaneGrabber, Position1)
        + static_cast<std::size_t>(position - 1) * sizeof(MorvaneReserved);
}
static_assert(offsetof(MorvaneGrabber, GetFrameBytes) == placeOf(5));
static_assert(offsetof(MorvaneGrabber, GetWidth) == placeOf(9));
static_assert(offsetof(MorvaneGrabber, GetHeight) == placeOf(11));
static_assert(offsetof(MorvaneGrabber, GetHasProperties) == placeOf(13));
static_assert(offsetof(MorvaneGrabber, GetReady) == placeOf(15));
static_assert(offsetof(MorvaneGrabber, Close) == placeOf(16));
static_assert(offsetof(MorvaneGrabber, Grab) == placeOf(17));
static_assert(offsetof(MorvaneGrabber, ShowProperties) == placeOf(18));
static_assert(sizeof(MorvaneGrabber) == placeOf(19));

// An operation that is not there, or throws, has no effect.
template <typename Operation, typename... Results>
void call(const MorvaneGrabber& table, Operation operation, Results... results)
{
    if (!operation)
        return;
    try {
        operation(table.Context, results...);
    } catch (...) {
    }
}

template <typename Value>
Value read(const MorvaneGrabber& table, void (*operation)(void*, Value*))
{
    Value value = 0;
    call(table, operation, &value);
    return value;
}

const MorvaneGrabber* createTable(const std::string& library, std::string& error)
{
    void* const function = FunctionOfLibrary(library, "MorvaneCreateGrabber", error);
    if (!function)
        return nullptr;
    std::array<char, 1024> reason{};
    const MorvaneGrabber* table = nullptr;
    try {
        table = reinterpret_cast<decltype(&MorvaneCreateGrabber)>(function)(
            reason.data(), static_cast<int>(reason.size()));
        reason.back() = '\0';
        error = table || reason[0] ? reason.data() : "the plug-in has not created a grabber";
    } catch (const std::exception& thrown) {
        error = thrown.what();
    } catch (...) {
        error = "unknown exception";
    }
    if (!table)
        error = library + ": " + error;
    return table;
}

bool isReadable(const MorvaneGrabber& table)
{
    return table.Version == MORVANE_GRABBER_VERSION && table.Size >= sizeof table;
}

bool isComplete(const MorvaneGrabber& table)
{
    return table.GetFrameBytes && table.GetWidth && table.GetHeight && table.GetReady && table.Grab;
}

} // namespace

std::unique_ptr<GrabberPlugin> GrabberPlugin::Create(const std::string& Library, std::string& Error)
{
    const MorvaneGrabber* const table = createTable(Library, Error);
    if (!table)
        return nullptr;
    Error = Library + ": made for another version of this program, or incomplete";
    if (!isReadable(*table))
        return nullptr;
    // An incomplete one is released like any other.
    std::unique_ptr<GrabberPlugin> plugin(new GrabberPlugin(*table));
    if (!isComplete(*table))
        return nullptr;
    Error.clear();
    return plugin;
}

GrabberPlugin::~GrabberPlugin()
{
    call(m_table, m_table.Release);
}

bool GrabberPlugin::IsReady() const
{
    return read(m_table, m_table.GetReady) != MORVANE_FALSE;
}

bool GrabberPlugin::HasProperties() const
{
    return m_table.ShowProperties && read(m_table, m_table.GetHasProperties) != MORVANE_FALSE;
}

FrameSizes GrabberPlugin::GetSizes() const
{
    return {.Width = read(m_table, m_table.GetWidth),
        .Height = read(m_table, m_table.GetHeight),
        .Bytes = read(m_table, m_table.GetFrameBytes)};
}

bool GrabberPlugin::Grab(std::vector<std::uint8_t>& Block) const
{
    const auto room = static_cast<std::int32_t>(Block.size());
    std::int32_t filled = room;
    MorvaneBoolean success = MORVANE_FALSE;
    call(m_table, m_table.Grab, Block.data(), &filled, &success);
    if (success == MORVANE_FALSE || filled < 0 || filled > room)
        return false;
    Block.resize(static_cast<std::size_t>(filled));
    return true;
}

void GrabberPlugin::ShowProperties() const
{
    call(m_table, m_table.ShowProperties);
}

void GrabberPlugin::Close() const
{
    call(m_table, m_table.Close);
}

} // namespace morvane
