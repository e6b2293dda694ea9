// Feeds one reader of climate files; which one, the build says. What is read is evaluated as well.
#include <CCM/ClimateDataLoader.h>

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <cstdint>
#include <sstream>

namespace {

void read(CCM::ClimateDataLoader & data, std::string_view text) {
#if defined(HYG_FUZZ_c6b)
    std::istringstream in{std::string(text)};
    data.readClimateDataKOR(in);
#elif defined(HYG_FUZZ_epw)
    data.parseEPW(text);
#elif defined(HYG_FUZZ_wac)
    data.parseWAC(text);
#elif defined(HYG_FUZZ_dat)
    data.parseBBSRDat(text);
#elif defined(HYG_FUZZ_ccd)
    data.setQuantity(CCM::ClimateDataLoader::parseCCD(text));
#endif
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    KOR::MessageHandlerRegistry::instance().messageHandler().setConsoleLogLevel(0);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * bytes, std::size_t size) {
    CCM::ClimateDataLoader data;
    try {
        read(data, {reinterpret_cast<const char *>(bytes), size});
        for (const double t : {0.0, 1800.0, 3600.0, 1e7, CCM::SECONDS_OF_YEAR})
            data.setTime(data.m_startYear, t);
    } catch (const KOR::Exception &) { // refused, as it should be
    }
    return 0;
}
