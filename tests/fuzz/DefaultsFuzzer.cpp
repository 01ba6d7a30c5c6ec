#include "Velmora/platform/linux/DefaultsDocument.h"

#include "tests/fuzz/FuzzInput.h"

/// Any bytes are either refused, or read, written, changed and read again without a loss.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    using namespace velmora;
    auto document = parseDefaults({reinterpret_cast<char const*>(data), size});
    if (!document)
        return 0;

    auto const text = document->text();
    auto const again = parseDefaults(text);
    require(again && again->text() == text);

    document->set("paused", true);
    document->set("widgetSize", 128.0);
    document->set("intervalMinutes", std::int64_t{15});
    auto const changed = document->text();
    auto const reread = parseDefaults(changed);
    require(reread.has_value());
    require(reread->value("paused") == DefaultsValue{true});
    require(reread->value("widgetSize") == DefaultsValue{128.0});
    require(reread->value("intervalMinutes") == DefaultsValue{std::int64_t{15}});
    return 0;
}
