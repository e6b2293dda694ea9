#pragma once

#include <SOLVER/Model.h>
#include <SOLVER/Physics.h>

#include <cmath>
#include <optional>

namespace SOLVER {

/// Kelvin pressure and vapour permeability factor at a temperature; either may refer to T_REF instead.
struct Thermodynamics {
    bool useReferenceTemperature = false;

    double kelvin(double T) const { return kelvinPressure(useReferenceTemperature ? T_REF : T); }
    /// Of the vapour permeability: diffusivity in air grows with T^1.81, its gas constant divides by T.
    double permeabilityFactor(double T) const {
        return useReferenceTemperature ? 1 : 1 + 0.81 * (T - T_REF) / T_REF; // of T^0.81, 0.04 % off at 0 C
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
             module_t module, double openToLiquid = 1)
        : cell(state), table(material), distance(wayLength), head(gravityHead), liquidShare(openToLiquid),
          lambdaOfSuction(state.lambda), isDry(module == module_t::heat) {
        if (isDry)
            return;
        integrals = table.integrals(cell.suction);
        if (table.hasLambdaByTemperature() || cell.ice > 0) {
            MaterialTable::Slopes unused{};
            lambdaOfSuction = table.fromSuction(cell.suction, unused).lambda;
        }
    }

    /// Densities of flux from the centre to the face and their derivatives with respect to the face node.
    struct Flux {
        double conduction, vapor, liquid;
        double conductionByT, conductionByPhi;
        double vaporByT, vaporByPhi;
        double liquidByT, liquidByPhi;
        double vaporPressure, suction; ///< at the face
        double vaporPressureByT, vaporPressureByPhi;
    };

    /// Where only heat is balanced, and does not depend on temperature: the resistance to heat [m2K/W].
    std::optional<double> constantResistance() const {
        return isDry && !table.hasLambdaByTemperature() ? std::optional(distance / cell.lambda) : std::nullopt;
    }

    Flux flux(const FaceNode & node, const Thermodynamics & thermodynamics) const {
        if (isDry)
            return heatFlux(node.temperature);
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

        // The conductivities are means over the humidities on the way. With the mean of both ends instead a wetting
        // surface would close itself to vapour, and a cold wet one keep itself cold: the balance of the face would have
        // several solutions.
        const MaterialTable::Integrals faceIntegrals = table.integrals(suction);
        const double faceHumidity = std::exp(-suction / kelvinPressure(T_REF));
        // Without the round-off of a difference of humidities.
        const double humidityDrop = faceHumidity * std::expm1((suction - cell.suction) / kelvinPressure(T_REF));
        const auto mean = [&](double atCell, double atFace, double integral, double slopeAtFace, double & bySuction) {
            const double size = std::fabs(humidityDrop);
            const double value = size < 1e-8 ? (atCell + atFace) / 2 : integral / humidityDrop;
            bySuction =
                size < 1e-5 ? slopeAtFace / 2 : (atFace - value) / humidityDrop * faceHumidity / kelvinPressure(T_REF);
            return value;
        };
        double vaporBySuction = 0;
        const double permeability =
            mean(cell.vapor, face.vapor, integrals.vapor - faceIntegrals.vapor, slopes.vapor, vaporBySuction);
        const double factor = thermodynamics.permeabilityFactor((cell.temperature + T) / 2) / distance;
        const double drop = factor * (cell.vaporPressure - f.vaporPressure);
        f.vapor = permeability * drop;
        f.vaporByPhi = vaporBySuction * suctionByPhi * drop - factor * permeability * f.vaporPressureByPhi;
        f.vaporByT = vaporBySuction * suctionByT * drop - factor * permeability * f.vaporPressureByT;

        double lambdaBySuction = 0;
        double lambda = mean(lambdaOfSuction, face.lambda, integrals.lambda - faceIntegrals.lambda, slopes.lambda,
                             lambdaBySuction) +
                        (cell.lambda - lambdaOfSuction) / 2;
        double lambdaByT = 0;
        if (table.hasLambdaByTemperature())
            lambda += table.lambdaByTemperature(T, lambdaByT) / 2;
        const double difference = (cell.temperature - T) / distance;
        f.conduction = lambda * difference;
        f.conductionByT = (lambdaBySuction * suctionByT + lambdaByT / 2) * difference - lambda / distance;
        f.conductionByPhi = lambdaBySuction * suctionByPhi * difference;

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
    /// Of heat alone: the content of the cell is that of the way to its face.
    Flux heatFlux(double T) const {
        double lambda = cell.lambda;
        double lambdaByT = 0;
        if (table.hasLambdaByTemperature()) {
            double unused = 0;
            lambda +=
                (table.lambdaByTemperature(T, lambdaByT) - table.lambdaByTemperature(cell.temperature, unused)) / 2;
        }
        Flux f{};
        f.suction = cell.suction;
        f.conduction = lambda * (cell.temperature - T) / distance;
        f.conductionByT = (lambdaByT / 2 * (cell.temperature - T) - lambda) / distance;
        return f;
    }

    const MaterialTable & table;
    double distance;
    double head;
    double liquidShare;
    double lambdaOfSuction; ///< of the cell, less what ice and temperature add to it [W/mK]
    bool isDry;             ///< only heat is balanced
    MaterialTable::Integrals integrals{};
};

} // namespace SOLVER
