#pragma once

#include <CCM/ClimateDataLoader.h>
#include <CCM/SunPosition.h>

#include <vector>

namespace CCM {

/// Short-wave radiation on inclined surfaces, from the direct normal and diffuse horizontal radiation of climate data.
class SolarRadiationModel {
public:
    /// What falls on one surface.
    struct RadiationLoad {
        double direct = 0;         ///< [W/m2]
        double diffuse = 0;        ///< [W/m2] from the sky and reflected by the ground
        double incidenceAngle = 0; ///< [rad], pi/2 when the sun does not reach the surface
    };
    struct Surface {
        double inclination; ///< [rad], 0: horizontal, facing up; pi/2: vertical
        double orientation; ///< [rad] of the outward normal from north, clockwise
        RadiationLoad load;
        double sinInclination;
        double skyView;   ///< (1 + cos(inclination)) / 2
        double normal[3]; ///< unit vector north, east, up
    };

    /// Surfaces that are less inclined than this [rad] are horizontal.
    static constexpr double HORIZONTAL_TOLERANCE = 1e-4;

    /// The surface with this inclination and orientation [rad], both within 1e-5; appended if there is none.
    unsigned int addSurface(double inclination, double orientation);
    const std::vector<Surface> & surfaces() const { return m_surfaces; }

    /// Sets the climate data to this time and computes the loads of all surfaces. Takes no memory.
    /// \param seconds [s] of the year, local standard time. Throws as ClimateDataLoader::setTime.
    void setTime(int year, double seconds);

    /// The same from radiation of the caller's own instead of the climate data, at the place of the climate data.
    /// \param directNormal, diffuse [W/m2] \param pressure of the air [Pa]
    void setRadiation(double seconds, double directNormal, double diffuse, double pressure = 101325);

    /// Results of the last setTime. Throws "Invalid surface ID %1." ("[SolarRadiationModel::radiationLoad]").
    const RadiationLoad & radiationLoad(unsigned int surfaceID) const;
    void radiationLoad(unsigned int surfaceID, double & direct, double & diffuse, double & incidenceAngle) const;

    /// Direct normal radiation [W/m2] from direct radiation on the horizontal [W/m2], limited by the clear sky.
    /// A missing value stays missing.
    /// \param seconds [s] of the year, local standard time
    double convertHorizontalToNormalRadiation(double seconds, double directHorizontal);
    /// Direct normal radiation of the clear sky [W/m2], 0 for a sun lower than 0.001 rad. \param sinAltitude of the sun
    double clearSkyNormalRadiation(double seconds, double sinAltitude);

    /// Replaces direct radiation on the horizontal in the data by direct normal radiation, each value at its time.
    static void normalFromHorizontal(ClimateDataLoader & data);

    /// The sun over the place of the climate data. \param seconds [s] of the year, local standard time
    SunPosition sunAt(double seconds) const;
    const SunPosition & sun() const { return m_sun; }
    int year() const { return m_year; }
    double seconds() const { return m_seconds; }

    ClimateDataLoader m_climate;
    double m_albedo = 0.2;         ///< reflectance of the ground
    bool m_anisotropicSky = false; ///< Perez model instead of an even sky

private:
    std::vector<Surface> m_surfaces;
    int m_year = 0;
    double m_seconds = 0;
    SunPosition m_sun;
    KOR::LinearSpline m_opticalDepth; ///< of the clear sky over the year [s]; built on first use
};

/// Switches direct radiation on between the horizon and 2 degrees: 1 - exp(-altitude^2 / 0.0001).
double sunriseFactor(double altitude);

/// Extraterrestrial normal radiation [W/m2] of the anisotropic model. \param dayNumber day of the year, from 1
double extraterrestrialRadiation(double dayNumber);

/// Relative air mass, Kasten and Young 1989, corrected by the pressure [Pa]. \param zenith [rad], at most pi/2
double relativeAirMass(double zenith, double pressure);

/// One state of sun and sky for the anisotropic model (Perez, Ineichen, Seals, Michalsky, Stewart 1990).
struct PerezSky {
    double diffuse = 0; ///< diffuse radiation on the horizontal [W/m2]
    double F1 = 0;      ///< share of the circumsolar part
    double F2 = 0;      ///< share of the horizon band
    double cosZenith = 0;

    /// \param direct normal radiation [W/m2] \param diffuse on the horizontal [W/m2] \param zenith of the sun [rad]
    /// \param airMass relative \param extraterrestrial normal radiation [W/m2]
    PerezSky(double direct, double diffuse, double zenith, double airMass, double extraterrestrial);

    /// Diffuse radiation of the sky on a surface [W/m2]. \param skyView (1 + cos(inclination)) / 2
    double onSurface(double skyView, double sinInclination, double cosIncidence) const;
};

} // namespace CCM
