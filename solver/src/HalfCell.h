#pragma once

#include <SOLVER/Model.h>
#include <SOLVER/Physics.h>

#include <cmath>

namespace SOLVER {

/// Kelvin pressure and vapour permeability factor at a temperature; either may refer to T_REF instead.
struct Thermodynamics {
    bool useReferenceTemperature = false;

    double kelvin(double T) const { return kelvinPressure(useReferenceTemperature ? T_REF : T); }
    /// Of the vapour permeability: diffusivity in air grows with T^1.81, its gas constant divides by T.
    double permeabilityFactor(double T) const {
        return useReferenceTemperature ? 1 : 1 + 0.81 * (T - T_REF) / T_REF; // of T^0.81, 0.4 % off at 0 C
    }
};

/// Mean of the liquid conductivity [s] over the suctions between two states of one material. With it the flux under
/// gravity vanishes exactly where the suctions differ by the weight of the water between them.
inline double meanConductivity(const MaterialTable & table, double suctionA, double potentialA, double suctionB,
                               double potentialB) {
    const double difference = suctionB - suctionA;
    if (std::fabs(difference) > 1e-6 * (std::fabs(suctionA) + std::fabs(suctionB)) + 1e-6)
        return (potentialA - potentialB) / difference;
    MaterialTable::Slopes slopes{};
    table.fromSuction((suctionA + suctionB) / 2, slopes);
    return slopes.liquid;
}

/// The state on a face: temperature and relative humidity are the unknowns of the elimination. In them vapour flux is
/// linear, and near saturation liquid flux is.
struct FaceNode {
    double temperature; ///< [K]
    double humidity;    ///< [-]
};

/// The way from a cell's centre to one of its faces.
class HalfCell {
public:
    /// \param wayLength from the centre to the face [m] \param gravityHead suction that gravity adds on the way [Pa]
    /// \param openToLiquid share of the face through which liquid passes
    HalfCell(const MaterialTable & material, const Model::CellState & state, double wayLength, double gravityHead,
             double openToLiquid = 1)
        : cell(state), table(material), distance(wayLength), head(gravityHead), liquidShare(openToLiquid),
          referenceHumidity(std::exp(-state.suction / kelvinPressure(T_REF))) {}

    /// Densities of flux from the centre to the face and their derivatives with respect to the face node.
    struct Flux {
        double conduction, vapor, liquid;
        double conductionByT, conductionByPhi;
        double vaporByT, vaporByPhi;
        double liquidByT, liquidByPhi;
        double vaporPressure, suction; ///< at the face
        double vaporPressureByT, vaporPressureByPhi;
    };

    Flux flux(const FaceNode & node, const Thermodynamics & thermodynamics) const {
        const double T = node.temperature;
        const double kelvin = thermodynamics.kelvin(T);
        const double suction = -kelvin * std::log(node.humidity);
        const double suctionByPhi = -kelvin / node.humidity;
        const double suctionByT = thermodynamics.useReferenceTemperature ? 0 : suction / T;
        MaterialTable::Slopes slopes{};
        const MaterialTable::State face = table.fromSuction(suction, slopes);

        Flux f{};
        f.suction = suction;
        const double saturation = saturationPressure(T);
        f.vaporPressure = saturation * node.humidity;
        f.vaporPressureByPhi = saturation;
        f.vaporPressureByT = f.vaporPressure * logSaturationPressureSlope(T);

        // The permeability is the mean over the humidities on the way. With the mean of both ends instead a wetting
        // surface would close itself: vapour flux would fall with the humidity that drives it, and the balance of the
        // face have several solutions.
        const double factor = thermodynamics.permeabilityFactor((cell.temperature + T) / 2) / distance;
        const double faceHumidity = std::exp(-suction / kelvinPressure(T_REF));
        const double humidityDrop = referenceHumidity - faceHumidity;
        const bool isNear = std::fabs(humidityDrop) < 1e-5;
        const double mean =
            isNear ? (cell.vapor + face.vapor) / 2 : (cell.vaporPotential - face.vaporPotential) / humidityDrop;
        const double meanBySuction =
            isNear ? slopes.vapor / 2 : (face.vapor - mean) / humidityDrop * faceHumidity / kelvinPressure(T_REF);
        const double permeability = factor * mean;
        const double permeabilityBySuction = factor * meanBySuction;
        const double drop = cell.vaporPressure - f.vaporPressure;
        f.vapor = permeability * drop;
        f.vaporByPhi = permeabilityBySuction * suctionByPhi * drop - permeability * f.vaporPressureByPhi;
        f.vaporByT = permeabilityBySuction * suctionByT * drop - permeability * f.vaporPressureByT;

        double lambda = face.lambda;
        double lambdaByT = 0;
        if (table.hasLambdaByTemperature())
            lambda += table.lambdaByTemperature(T, lambdaByT);
        const double conductance = (cell.lambda + lambda) / 2 / distance;
        const double conductanceBySuction = slopes.lambda / 2 / distance;
        const double difference = cell.temperature - T;
        f.conduction = conductance * difference;
        f.conductionByT = (conductanceBySuction * suctionByT + lambdaByT / 2 / distance) * difference - conductance;
        f.conductionByPhi = conductanceBySuction * suctionByPhi * difference;

        f.liquid = liquidShare * (cell.potential - face.potential) / distance;
        const double liquidBySuction = liquidShare * slopes.liquid / distance;
        if (head != 0)
            f.liquid -= liquidShare * meanConductivity(table, cell.suction, cell.potential, suction, face.potential) *
                        head / distance;
        f.liquidByPhi = liquidBySuction * suctionByPhi;
        f.liquidByT = liquidBySuction * suctionByT;
        return f;
    }

    const Model::CellState & cell;

private:
    const MaterialTable & table;
    double distance;
    double head;
    double liquidShare;
    double referenceHumidity; ///< of the cell at T_REF
};

} // namespace SOLVER
