#include "automation/SampleDesk.h"

#include <cstdint>
#include <cstdlib>

using namespace rovanta;
using namespace rovanta::tests;

/// Any bytes are lines to one desk: each is answered by nothing or by one whole response. A line may end the program,
/// as its Exit command does; the next input then finds a new one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static std::unique_ptr<SampleDesk> at;
    if (!at || at->desk.Ended())
        at = std::make_unique<SampleDesk>();
    for (const std::string& line : Split({reinterpret_cast<const char*>(data), size}, '\n')) {
        const std::optional<std::string> answer = at->dispatcher.Answer(line);
        if (!answer)
            continue;
        const Json response = Json::parse(*answer);
        if (response.contains("result") == response.contains("error"))
            std::abort();
    }
    return 0;
}
