#include "tests/store/StatementTrial.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static rovanta::TestOffice office;
    rovanta::TryAnyText(office, std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
