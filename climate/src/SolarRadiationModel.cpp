#include <CCM/SolarRadiationModel.h>

#include <KOR/Exception.h>
#include <KOR/Time.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace CCM {

namespace {

constexpr double PI = std::numbers::pi;
constexpr double SAME_SURFACE = 1e-5;
constexpr double SUNRISE_PARAMETER = 0.0001;

/// One bin of sky clearness.
struct PerezBin {
    double lowerBound; ///< of the clearness, inclusive
    double f11, f12, f13, f21, f22, f23;
};
// Perez et al. 1990, Solar Energy 44 (5), table 6.
constexpr PerezBin PEREZ_BINS[] = {
    {1,     -0.0083, 0.5877,  -0.0621, -0.0596, 0.0721,  -0.0220},
    {1.065, 0.1299,  0.6826,  -0.1514, -0.0189, 0.0660,  -0.0289},
    {1.23,  0.3297,  0.4869,  -0.2211, 0.0554,  -0.0640, -0.0261},
    {1.5,   0.5682,  0.1875,  -0.2951, 0.1089,  -0.1519, -0.0140},
    {1.95,  0.8730,  -0.3920, -0.3616, 0.2256,  -0.4620, 0.0012 },
    {2.8,   1.1326,  -1.2367, -0.4118, 0.2878,  -0.8230, 0.0559 },
    {4.5,   1.0602,  -1.5999, -0.3589, 0.2642,  -1.1272, 0.1311 },
    {6.2,   0.6777,  -0.3273, -0.2504, 0.1561,  -1.3765, 0.2506 },
};

// Clear-sky optical depth on the 21st of each month, January to December.
constexpr double OPTICAL_DEPTHS[12] = {0.142, 0.144, 0.156, 0.180, 0.196, 0.205,
                                       0.207, 0.201, 0.177, 0.160, 0.149, 0.142};
constexpr double OPTICAL_DEPTH_AT_NEW_YEAR = 0.142;

KOR::LinearSpline opticalDepthOverYear() {
    std::vector<double> times{0};
    std::vector<double> depths{OPTICAL_DEPTH_AT_NEW_YEAR};
    for (int month = 0; month < 12; ++month) {
        KOR::Time day;
        day.set(0, month, 20, 0);
        times.push_back(day.m_seconds);
        depths.push_back(OPTICAL_DEPTHS[month]);
    }
    times.push_back(SECONDS_OF_YEAR);
    depths.push_back(OPTICAL_DEPTH_AT_NEW_YEAR);
    KOR::LinearSpline spline;
    std::string reason;
    spline.setPoints(std::move(times), std::move(depths));
    if (!spline.makeSpline(reason))
        throw KOR::Exception(KOR::text("Error constructimng linear spline for ASHRAE optical depth values: %1", reason),
                             "[SolarRadiationModel::convertHorizontalToNormalRadiation]");
    return spline;
}

} // namespace

double sunriseFactor(double altitude) {
    if (altitude <= 0)
        return 0;
    const double exponent = altitude * altitude / SUNRISE_PARAMETER;
    return exponent > 40 ? 1 : -std::expm1(-exponent); // beyond 40 the difference is below the last digit
}

double extraterrestrialRadiation(double dayNumber) {
    const double x = 2 * PI * dayNumber / 365;
    return 1367.15037 + 0.034221 * std::cos(x) + 0.00128 * std::sin(x) + 0.000719 * std::cos(2 * x) +
           0.000077 * std::sin(2 * x);
}

double relativeAirMass(double zenith, double pressure) {
    const double degrees = zenith * 180 / PI;
    return pressure / 101325 / (std::cos(zenith) + 0.50572 * std::pow(96.07995 - degrees, -1.6364));
}

PerezSky::PerezSky(double direct, double diffuseHorizontal, double zenith, double airMass, double extraterrestrial)
    : diffuse(diffuseHorizontal), cosZenith(std::cos(zenith)) {
    if (!(diffuse > 0))
        return; // no light from the sky, whatever its clearness
    const double brightness = airMass * diffuse / extraterrestrial;
    const double zenithTerm = 1.041 * zenith * zenith * zenith;
    const double clearness = ((diffuse + direct) / diffuse + zenithTerm) / (1 + zenithTerm);
    const PerezBin * bin = nullptr;
    for (const PerezBin & candidate : PEREZ_BINS)
        if (clearness >= candidate.lowerBound)
            bin = &candidate;
    if (!bin)
        return;
    F1 = std::max(0.0, bin->f11 + bin->f12 * brightness + bin->f13 * zenith);
    F2 = bin->f21 + bin->f22 * brightness + bin->f23 * zenith;
}

double PerezSky::onSurface(double skyView, double sinInclination, double cosIncidence) const {
    constexpr double COS_85_DEGREES = 0.08715574274765817;
    const double A = std::max(0.0, cosIncidence);
    const double B = std::max(cosZenith, COS_85_DEGREES);
    return std::max(0.0, diffuse * (skyView * (1 - F1) + F1 * A / B + F2 * sinInclination));
}

unsigned int SolarRadiationModel::addSurface(double inclination, double orientation) {
    for (std::size_t i = 0; i < m_surfaces.size(); ++i)
        if (std::abs(m_surfaces[i].inclination - inclination) < SAME_SURFACE &&
            std::abs(m_surfaces[i].orientation - orientation) < SAME_SURFACE)
            return static_cast<unsigned int>(i);
    const double sinInclination = std::sin(inclination);
    const double cosHalf = std::cos(inclination / 2);
    m_surfaces.push_back({
        inclination,
        orientation,
        {0,                                      0,                                      PI / 2               },
        sinInclination,
        cosHalf * cosHalf,
        {sinInclination * std::cos(orientation), sinInclination * std::sin(orientation), std::cos(inclination)}
    });
    return static_cast<unsigned int>(m_surfaces.size() - 1);
}

SunPosition SolarRadiationModel::sunAt(double seconds) const {
    return sunPosition(seconds, m_climate.m_latitude * PI / 180, m_climate.m_longitude * PI / 180,
                       m_climate.utcOffset());
}

void SolarRadiationModel::setTime(int year, double seconds) {
    m_year = year;
    m_climate.setTime(year, seconds);
    setRadiation(seconds, m_climate.value(Q_DIRECT_RADIATION), m_climate.value(Q_DIFFUSE_RADIATION),
                 m_climate.value(Q_AIR_PRESSURE));
}

void SolarRadiationModel::setRadiation(double seconds, double directNormal, double diffuse, double pressure) {
    m_seconds = seconds;
    m_sun = sunAt(seconds);
    if (m_sun.altitude <= 0) {
        for (Surface & surface : m_surfaces) {
            const bool isHorizontal = std::abs(surface.inclination) < HORIZONTAL_TOLERANCE;
            const double view = isHorizontal ? 1 : surface.skyView;
            surface.load = {0, m_anisotropicSky ? 0 : ((1 - view) * m_albedo + view) * diffuse, PI / 2};
        }
        return;
    }

    const double direct = directNormal * sunriseFactor(m_sun.altitude);
    const double ground = m_albedo * (diffuse + direct * m_sun.sinAltitude);
    std::optional<PerezSky> perez;
    if (m_anisotropicSky) {
        const double zenith = 1.570796327 - m_sun.altitude;
        const double dayNumber = std::floor(wrappedIntoYear(seconds) / 86400) + 1;
        perez.emplace(direct, diffuse, zenith, relativeAirMass(zenith, pressure), extraterrestrialRadiation(dayNumber));
    }
    for (Surface & surface : m_surfaces) {
        RadiationLoad & load = surface.load;
        if (std::abs(surface.inclination) < HORIZONTAL_TOLERANCE) {
            load = {direct * m_sun.sinAltitude, diffuse, PI / 2 - m_sun.altitude};
            continue;
        }
        const double cosIncidence = std::min(1.0, surface.normal[0] * m_sun.north + surface.normal[1] * m_sun.east +
                                                      surface.normal[2] * m_sun.sinAltitude);
        const bool isReached = cosIncidence >= 0;
        load.direct = isReached ? direct * cosIncidence : 0;
        load.incidenceAngle = isReached ? std::acos(cosIncidence) : PI / 2;
        load.diffuse = (perez ? perez->onSurface(surface.skyView, surface.sinInclination, cosIncidence)
                              : surface.skyView * diffuse) +
                       (1 - surface.skyView) * ground;
    }
}

const SolarRadiationModel::RadiationLoad & SolarRadiationModel::radiationLoad(unsigned int surfaceID) const {
    if (surfaceID >= m_surfaces.size())
        throw KOR::Exception(KOR::text("Invalid surface ID %1.", surfaceID), "[SolarRadiationModel::radiationLoad]");
    return m_surfaces[surfaceID].load;
}

void SolarRadiationModel::radiationLoad(unsigned int surfaceID, double & direct, double & diffuse,
                                        double & incidenceAngle) const {
    const RadiationLoad & load = radiationLoad(surfaceID);
    direct = load.direct;
    diffuse = load.diffuse;
    incidenceAngle = load.incidenceAngle;
}

double SolarRadiationModel::clearSkyNormalRadiation(double seconds, double sinAltitude) {
    if (m_opticalDepth.empty())
        m_opticalDepth = opticalDepthOverYear();
    if (!(std::asin(std::clamp(sinAltitude, -1.0, 1.0)) > 0.001))
        return 0;
    const double t = wrappedIntoYear(seconds);
    const double extraterrestrial = 1366.1 * (1 + 0.033 * std::cos(2 * PI * (t / 86400) / 365));
    return extraterrestrial * std::exp(-m_opticalDepth.value(t) / sinAltitude);
}

double SolarRadiationModel::convertHorizontalToNormalRadiation(double seconds, double directHorizontal) {
    if (isMissing(directHorizontal))
        return MISSING;
    const SunPosition sun = sunAt(seconds);
    const double limit = clearSkyNormalRadiation(seconds, sun.sinAltitude);
    return limit > 0 ? std::min(directHorizontal / sun.sinAltitude, limit) : 0;
}

void SolarRadiationModel::normalFromHorizontal(ClimateDataLoader & data) {
    SolarRadiationModel model;
    model.m_climate.m_longitude = data.m_longitude;
    model.m_climate.m_latitude = data.m_latitude;
    model.m_climate.setUtcOffset(data.utcOffset());
    std::vector<double> & direct = data.m_data[Q_DIRECT_RADIATION];
    for (std::size_t i = 0; i < direct.size(); ++i)
        direct[i] = model.convertHorizontalToNormalRadiation(data.timeOf(Q_DIRECT_RADIATION, i), direct[i]);
}

} // namespace CCM
