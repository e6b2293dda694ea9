#include <MM/CheckMaterial.h>

#include <MM/Material.h>

#include "Lines.h"
#include "SplineTools.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>

namespace MM {

namespace {

using Flags = MaterialIdentification::Flags;
using Storage = Material::ParaStorage;
using Transport = Material::ParaTransport;
using Topic = Finding::Topic;

constexpr double SMALLEST = 1e-20;   ///< conductivities below this are none
constexpr double SAME = 1e-6;        ///< relative difference of values that are meant to be equal
constexpr double SAME_LAMBDA = 1e-3; ///< of thermal conductivities
constexpr double SAME_LG = 1e-2;     ///< of decimal logarithms

bool same(double a, double b, double tolerance = SAME) {
    return std::abs(a - b) <= tolerance * std::max(std::abs(a), std::abs(b));
}

class Checker {
public:
    explicit Checker(const Material & material)
        : m_material(material), m_isAir(material.hasFlag(Flags::AIR)), m_isTight(material.m_identification.isTight()),
          m_thetaEff(material.parameter(Storage::THETA_EFF)), m_thetaPor(material.parameter(Storage::THETA_POR)) {}

    std::vector<Finding> run() {
        checkThermalStorage();
        checkStorageParameters();
        checkMoistureStorage();
        for (int direction = 0; direction < static_cast<int>(Material::NUM_DIRECTIONS); ++direction) {
            if (m_material.effectiveDirection(direction) != direction)
                continue;
            checkThermalConductivity(direction);
            checkLiquidTransport(direction);
            checkVaporTransport(direction);
            checkAirTransport(direction);
        }
        std::stable_sort(m_findings.begin(), m_findings.end(),
                         [](const Finding & a, const Finding & b) { return a.topic < b.topic; });
        return std::move(m_findings);
    }

private:
    void add(bool isFound, Topic topic, std::string_view message, bool isFault = true) {
        const Finding finding{topic, message, isFault};
        if (isFound && std::find(m_findings.begin(), m_findings.end(), finding) == m_findings.end())
            m_findings.push_back(finding);
    }

    /// The function of a direction in absolute values; none where it cannot be scaled: what that takes is missing then,
    /// and found elsewhere.
    template <typename Section, std::size_t COUNT, typename Functions>
    KOR::LinearSpline scaled(const std::array<Section, COUNT> & sections, int direction, Functions which) const {
        Section section = sections[static_cast<std::size_t>(direction)];
        try {
            section.denormalize(m_material, direction);
            return section.prepared(which);
        } catch (const KOR::Exception &) {
            return {};
        }
    }

    /// A parameter that is not given is found elsewhere.
    static bool isEqual(const KOR::Parameter & parameter, double value, double tolerance = SAME) {
        return parameter.empty() || same(parameter.value(), value, tolerance);
    }

    void checkThermalConductivity(int direction) {
        using F = ThermalTransport::Functions;
        const KOR::Parameter & lambda = m_material.parameter(Transport::LAMBDA, direction);
        add(lambda.empty() || lambda.value() < SMALLEST, Topic::THERMAL_CONDUCTIVITY,
            "LambdaDry is smaller than 1e-20");
        constexpr Topic TOPIC = Topic::CONDUCTIVITY_FUNCTIONS;
        if (const auto spline = scaled(m_material.m_thermalTransport, direction, F::lambda_Theta_l); !spline.empty()) {
            add(spline.x().front() != 0, TOPIC, "The minimum Theta_l value should be zero!");
            add(!isEqual(m_thetaEff, spline.x().back()), TOPIC,
                "The maximum Thetal value should be equal to THETA_EFF!");
            add(!isEqual(lambda, spline.value(0), SAME_LAMBDA), TOPIC, "The lambda-value at zero must match LAMBDA!");
        }
        const KOR::LinearSpline & ice =
            m_material.m_thermalTransport[static_cast<std::size_t>(direction)].function(F::lambda_Theta_ice);
        const auto isPositive = [](double value) { return value > 0; };
        add(!ice.empty() &&
                (!ice.valid() || ice.x().front() != 0 || !std::all_of(ice.y().begin(), ice.y().end(), isPositive)),
            TOPIC, "Data for Lambda(ThetaIce) exist but function is not valid.!");
    }

    void checkThermalStorage() {
        const bool hasCe = !m_material.parameter(Storage::CE).empty();
        const bool hasFunction = m_material.m_thermalStorage.has(ThermalStorage::Functions::u_T);
        add(!hasCe && !hasFunction, Topic::THERMAL_STORAGE,
            "No data for thermal storage given (no parameter ce and no U(T) function)!");
        add(!hasCe && hasFunction, Topic::THERMAL_STORAGE, "U(T) function given but no parameter ce!");
    }

    void checkStorageParameters() {
        constexpr Topic TOPIC = Topic::STORAGE_PARAMETERS;
        add(m_isAir && !m_thetaEff.empty(), TOPIC, "Material is air and Theta_Eff exist.");
        add(m_isAir && !m_thetaPor.empty(), TOPIC, "Material is air and Theta_Por exist.");
        add(m_isTight && !m_thetaEff.empty(), TOPIC, "Material is water and vapor tight and Theta_Eff exist.");
        add(m_isTight && !m_thetaPor.empty(), TOPIC, "Material is water and vapor tight and Theta_Por exist.");
        if (m_isAir || m_isTight)
            return;
        add(m_thetaEff.empty(), TOPIC, "Theta_Eff not given! It is necessary for moisture storage");
        add(!m_thetaEff.empty() && !m_thetaPor.empty() && m_thetaPor.value() < m_thetaEff.value(), TOPIC,
            "Theta_Por is smaller than Theta_Eff!");
        add(m_thetaPor.empty(), TOPIC, "Theta_Por not given!");
    }

    void checkMoistureStorage() {
        using F = MoistureStorage::Functions;
        constexpr Topic TOPIC = Topic::MOISTURE_STORAGE;
        const MoistureStorage & storage = m_material.m_moistureStorage;
        const KOR::LinearSpline & overPC = storage.function(F::Theta_l_pC_de);
        const KOR::LinearSpline & inverse = storage.function(F::pC_Theta_l_de);
        const KOR::LinearSpline & isotherm = storage.function(F::Theta_l_RH);
        add(m_isTight && (!overPC.empty() || !inverse.empty() || !storage.models().empty()), TOPIC,
            "Material is water and vapor tight and moisture retention exist.");
        add(m_isTight && !isotherm.empty(), TOPIC, "Material is water and vapor tight and sorption isotherm exist.");
        if (m_isTight || m_isAir)
            return;
        if (overPC.empty() && isotherm.empty())
            checkModels(storage.models());
        if (overPC.empty() && !isotherm.empty())
            add(!hasInverse(isotherm), TOPIC, "Cannot create reverse function of Thetal(RH) function");
        // A normalised function runs to 1 in place of THETA_EFF.
        if (!overPC.empty()) {
            add(!isEqual(m_thetaEff, overPC.y().front()) && !same(overPC.y().front(), 1), TOPIC,
                "First value of Thetal(pc) is not Theta_Eff.");
            add(m_thetaEff.empty(), TOPIC, "Thetal(pc) exist but not Theta_Eff.");
            add(overPC.y().back() != 0, TOPIC, "Last value of Thetal(pc) is not 0.");
            add(overPC.x().front() != 0, TOPIC, "First x value of Thetal(pc) is not 0.");
        }
        if (!inverse.empty()) {
            add(!isEqual(m_thetaEff, inverse.x().back()) && !same(inverse.x().back(), 1), TOPIC,
                "Last x value of pc(Thetal) is not Theta_Eff.");
            add(m_thetaEff.empty(), TOPIC, "pc(Thetal) exist but not Theta_Eff.");
            add(inverse.x().front() != 0, TOPIC, "First x value of pc(Thetal) is not 0.");
            add(inverse.y().back() != 0, TOPIC, "Last value of pc(Thetal) is not 0.");
        }
        add(storage.has(F::mwu_T) && !canBePrepared(), TOPIC,
            "Current moisture storage function doesn't allow to create a correct mwu(T) function.");
    }

    void checkModels(const ModelHandler & models) {
        using Types = MoistureStorage::ModelTypes;
        constexpr Topic TOPIC = Topic::MOISTURE_STORAGE;
        if (models.empty())
            add(true, TOPIC, "No moisture storage function or model given");
        else if (models.models().size() > 1)
            add(true, TOPIC, "More than one model for moisture storage given");
        else if (const std::string & type = models.models().front().m_type; !KeywordList::KeywordExists<Types>(type))
            add(true, TOPIC, "Unknown model for moisture storage given");
        else if (KeywordList::Enumeration<Types>(type) != Types::GAUSS)
            add(true, TOPIC, "Only GAUSS model for moisture storage is currently supported");
        else
            add(true, TOPIC, "Moisture storage function is created from GAUSS model", false);
    }

    static bool hasInverse(const KOR::LinearSpline & isotherm) {
        try {
            inverted(isotherm, 0);
            return !wrongSlope(isotherm, false);
        } catch (const KOR::Exception &) {
            return false;
        }
    }

    bool canBePrepared() const {
        try {
            MoistureStorage storage = m_material.m_moistureStorage;
            storage.prepareCalculation(m_material);
            return true;
        } catch (const KOR::Exception &) {
            return false;
        }
    }

    void checkLiquidTransport(int direction) {
        using F = MoistureTransport::Functions;
        constexpr Topic TOPIC = Topic::LIQUID_TRANSPORT;
        const KOR::LinearSpline kl = scaled(m_material.m_moistureTransport, direction, F::lgKl_Theta_l);
        const KOR::LinearSpline dl = scaled(m_material.m_moistureTransport, direction, F::lgDl_Theta_l);
        const KOR::Parameter & klEff = m_material.parameter(Transport::KLEFF, direction);
        const KOR::Parameter & dlEff = m_material.parameter(Transport::DLEFF, direction);
        const bool hasAw = !m_material.parameter(Transport::AW, direction).empty();
        if (m_material.hasFlag(Flags::WATER_TIGHT)) {
            add(!klEff.empty(), TOPIC, "Material is water tight and Kl_Eff exist.");
            add(!dlEff.empty(), TOPIC, "Material is water tight and Dl_Eff exist.");
            add(hasAw, TOPIC, "Material is water tight and Aw exist.");
            add(!kl.empty(), TOPIC, "Material is water atight and Kl(Thetal) function exist.");
            add(!dl.empty(), TOPIC, "Material is water tight and Dl(Thetal) function exist.");
            return;
        }
        const auto isEqualLg = [](const KOR::Parameter & parameter, double lg) {
            return parameter.empty() ||
                   (parameter.value() > 0 && std::abs(std::log10(parameter.value()) - lg) <= SAME_LG);
        };
        const MoistureTransport & stored = m_material.m_moistureTransport[static_cast<std::size_t>(direction)];
        const bool isDefined = stored.has(F::lgKl_Theta_l) || stored.has(F::lgDl_Theta_l) || direction > 0;
        add(!isDefined, TOPIC, "Material is not water tight and no liquid transport function exist.");
        add(!klEff.empty() && !hasAw, TOPIC,
            "Kl_eff exist but Aw doesn't exist. Scaling of Kl(Thetal) by using Aw not possible.");
        add(!dlEff.empty() && !hasAw, TOPIC,
            "Dl_eff exist but Aw doesn't exist. Scaling of Dl(Thetal) by using Aw not possible.");
        add(stored.has(F::lgKl_Theta_l) && klEff.empty(), TOPIC, "Kl(Thetal) exist but Kleff not given!");
        add(stored.has(F::lgDl_Theta_l) && dlEff.empty(), TOPIC, "Dl(Thetal) exist but Kleff not given!");
        if (!kl.empty()) {
            add(kl.x().front() != 0, TOPIC, "First Thetal value in Kl(Thetal) must be 0.");
            add(!isEqual(m_thetaEff, kl.x().back()), TOPIC, "Last Thetal value in Kl(Thetal) must be ThetaEff.");
            add(!isEqualLg(klEff, kl.y().back()), TOPIC, "Last Kl value in Kl(Thetal) must be KlEff.");
            add(wrongSlope(kl, false).has_value(), TOPIC, "Kl(Thetal) function must be monotonic increasing.");
        }
        if (!dl.empty()) {
            add(!kl.empty(), TOPIC, "Dl(Thetal) and Kl(Thetal) exist! Only Kl(Thetal) will be used.");
            add(dl.x().front() != 0, TOPIC, "First Thetal value in Dl(Thetal) must be 0.");
            add(!isEqualLg(dlEff, dl.y().back()), TOPIC, "Last Dl value in Dl(Thetal) must be DlEff.");
            add(wrongSlope(dl, false).has_value(), TOPIC, "Dl(Thetal) function must be monotonic increasing.");
        }
    }

    void checkVaporTransport(int direction) {
        constexpr Topic TOPIC = Topic::VAPOR_TRANSPORT;
        const KOR::LinearSpline kv =
            scaled(m_material.m_moistureTransport, direction, MoistureTransport::Functions::lgKv_Theta_l);
        const KOR::Parameter & mew = m_material.parameter(Transport::MEW, direction);
        if (m_material.hasFlag(Flags::VAPOR_TIGHT)) {
            add(!mew.empty(), TOPIC, "Material is vapor tight and myDry exist.");
            return;
        }
        add(m_thetaPor.empty() && !m_isAir, TOPIC, "Material is not vapor tight and Theta_Por doesn't exist.");
        add(mew.empty() && kv.empty(), TOPIC,
            "Material is not vapor tight and no vapor transport model exist (no myDry and no Kv(Thetal)).");
        if (kv.empty())
            return;
        add(kv.x().front() != 0, TOPIC, "First Thetal value in Kv(Thetal) must be 0.");
        add(!isEqual(m_thetaPor, kv.x().back()), TOPIC, "Last Thetal value in Kv(Thetal) must be ThetaPor.");
        add(!mew.empty() &&
                !(mew.value() > 0 && std::abs(kv.y().front() - std::log10(KV_AIR / mew.value())) <= SAME_LG),
            TOPIC, "Thirst Kv value in Kv(Thetal) must correspond to myDry.");
    }

    void checkAirTransport(int direction) {
        constexpr Topic TOPIC = Topic::AIR_TRANSPORT;
        const KOR::Parameter & dry = m_material.parameter(Transport::KG, direction);
        const KOR::LinearSpline & spline = m_material.m_airTransport[static_cast<std::size_t>(direction)].function(
            AirTransport::Functions::Kg_Theta_l);
        if (m_material.hasFlag(Flags::AIR_TIGHT)) {
            add(!dry.empty(), TOPIC, "Material is air tight and Kg exist.");
            return;
        }
        add(!dry.empty() && dry.value() < SMALLEST, TOPIC, "Material is not air tight and Kg is smaller than 1e-20s.");
        add(dry.empty(), TOPIC, "Material is not air tight and Kg doesn't exist.");
        add(dry.empty() && spline.empty(), TOPIC,
            "Material is not air tight and transport function is given (no Kg(Thetal) and no Para Kg).");
        if (spline.empty())
            return;
        add(spline.x().front() != 0, TOPIC, "First Thetal value in Kg(Thetal) must be 0.");
        add(!isEqual(m_thetaPor, spline.x().back()), TOPIC, "Last Thetal value in Kg(Thetal) must be ThetaPor.");
        add(!dry.empty() && !same(dry.value(), spline.y().front(), SAME_LAMBDA), TOPIC,
            "First y value in Kg(Thetal) must be Kg_dry.");
        add(!std::all_of(spline.y().begin(), spline.y().end(), [](double value) { return value > 0; }), TOPIC,
            "All y values in Kg(Thetal) must be greater than 0.");
    }

    const Material & m_material;
    bool m_isAir, m_isTight;
    const KOR::Parameter & m_thetaEff;
    const KOR::Parameter & m_thetaPor;
    std::vector<Finding> m_findings;
};

} // namespace

std::vector<Finding> checkMaterial(const Material & material) {
    return Checker(material).run();
}

void reportFindings(const std::vector<Finding> & findings) {
    for (const Finding & finding : findings)
        log(std::string(finding.message), finding.isFault ? KOR::MSG_WARNING : KOR::MSG_INFORMATION, "[checkMaterial]");
}

} // namespace MM
