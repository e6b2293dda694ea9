// Feeds the reader of material files. What is read is checked, written, read again, prepared and evaluated.
#include <MM/CheckMaterial.h>
#include <MM/Material.h>
#include <MM/MaterialEvaluator.h>

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    KOR::MessageHandlerRegistry::instance().messageHandler().setConsoleLogLevel(0);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * bytes, std::size_t size) {
    MM::Material material;
    try {
        material.readContent({reinterpret_cast<const char *>(bytes), size}, "fuzz_1.m6");
    } catch (const KOR::Exception &) {
        return 0; // refused, as it should be
    }
    // What was read can be written, and gives the same again.
    const std::string written = material.content();
    MM::Material again;
    again.m_allowWithoutV = 1;
    again.readContent(written, "fuzz_1.m6");
    if (again.content() != written)
        std::abort();
    checkMaterial(material);
    try {
        material.prepareCalculation();
    } catch (const KOR::Exception &) {
        return 0;
    }
    for (const auto interpolation :
         {MM::FunctionTable::Interpolation::LINEAR, MM::FunctionTable::Interpolation::MONOTONE_CUBIC}) {
        const MM::MaterialEvaluator evaluator(material, interpolation);
        for (double share = -0.1; share < 1.2; share += 0.1) {
            const double content = share * evaluator.saturation();
            const auto state = evaluator.moisture(content);
            evaluator.content(state.liquidPressure);
            evaluator.liquidConductivity(0, content);
            evaluator.vaporPermeability(1, content, state.humidity);
            evaluator.thermalConductivity(2, content, 273.15 + 20 * share);
            evaluator.temperature(evaluator.enthalpy(293.15).value);
        }
    }
    return 0;
}
