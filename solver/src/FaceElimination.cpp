#include "FaceElimination.h"

#include "NewtonSystem.h"

#include <algorithm>
#include <limits>

namespace SOLVER {

namespace {

constexpr int MAX_ITERATIONS = 150;
constexpr int MAX_NEWTON_ITERATIONS = 30; ///< of a single node, before its root is enclosed
constexpr double CONVERGED_HUMIDITY = 1e-13;
constexpr double CONVERGED_TEMPERATURE = 1e-11; ///< [K]
constexpr double LOWEST_HUMIDITY = 1e-30;
constexpr double LEAST_VAPOR_RESISTANCE = 1e2; ///< [m/s], stands for none
/// Steps that are still this many tolerances long after MAX_ITERATIONS are a failure, shorter ones round-off.
constexpr double FAILED_STEP = 1e4;

/// Heat that changes phase with the vapour [J/kg]; none where moisture is not balanced. It varies so little with
/// temperature that the Newton iterations leave its derivative out.
double latentHeat(module_t module, double T) {
    return module == module_t::heat ? 0 : enthalpyOfVapor(T) - enthalpyOfLiquid(T);
}

/// Moves a node by a Newton step. The humidity stays positive and changes by no more than it has left, the
/// temperature by no more than 20 K, so that a bad start does not leave the range of the functions.
/// \param damping of the step, 1 for a full one
/// \return the size of the full step in units of the tolerances
double move(FaceNode & node, double dT, double dPhi, double damping) {
    dT = std::clamp(dT, -20.0, 20.0);
    const double lower = std::max(0.1 * node.humidity, LOWEST_HUMIDITY);
    const double upper = std::max(4 * node.humidity, node.humidity + 0.1);
    const double humidity = std::clamp(node.humidity + dPhi, lower, upper);
    const double step =
        std::max(std::fabs(dT) / CONVERGED_TEMPERATURE, std::fabs(humidity - node.humidity) / CONVERGED_HUMIDITY);
    node.temperature += damping * dT;
    node.humidity += damping * (humidity - node.humidity);
    return step;
}

FaceNode nodeAtCell(const HalfCell & half) {
    return {half.cell.temperature, std::max(half.cell.humidity, 1e-6)};
}

/// Newton's iteration: \p step(damping) solves and moves once, and returns the size of the step in tolerances, NaN if the
/// system is singular. Where full steps run in a circle (around the bend of the conductivity near saturation), shorter
/// ones end it. \return whether it converged; a failure shows as a flux that is not a number
template <typename Step> bool iterate(Step && step, int maxIterations = MAX_ITERATIONS) {
    double size = FAILED_STEP;
    for (int i = 0; i < maxIterations && size >= 1; ++i)
        size = step(i < 12 ? 1.0 : i < 60 ? 0.5 : 0.2);
    return size < FAILED_STEP;
}
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

/// What arrives at a node less what leaves it, heat and moisture, and how that depends on temperature and humidity.
struct NodeBalance {
    std::array<double, 2> gain;
    std::array<std::array<double, 2>, 2> slopes;
};

/// The temperature at which a node of given humidity gains no heat: Newton's iteration within a bracket, since a warmer
/// node gains less.
template <typename Balance> NodeBalance balanceHeat(FaceNode & node, Balance && balance) {
    double low = node.temperature - 200;
    double high = node.temperature + 200;
    for (int i = 0; i < MAX_ITERATIONS; ++i) {
        const NodeBalance at = balance(node);
        (at.gain[0] > 0 ? low : high) = node.temperature;
        const double next = node.temperature - at.gain[0] / at.slopes[0][0];
        if (!(std::fabs(next - node.temperature) >= CONVERGED_TEMPERATURE) || high - low < CONVERGED_TEMPERATURE)
            break;
        node.temperature = next > low && next < high ? next : (low + high) / 2;
    }
    return balance(node);
}

/// Encloses the humidity at which the node gains no moisture, where Newton's iteration ran in a circle. For each humidity
/// the temperature is solved for. \return false if there is none
template <typename Balance> bool encloseNode(FaceNode & node, Balance && balance) {
    const auto gain = [&](double humidity) {
        node.humidity = humidity;
        const NodeBalance at = balanceHeat(node, balance);
        return std::isfinite(at.gain[0]) ? at.gain[1] : NOT_A_NUMBER;
    };
    double low = node.humidity;
    double high = node.humidity;
    double atLow = gain(low);
    double atHigh = atLow;
    constexpr double HIGHEST_HUMIDITY = 1e3;
    while (atHigh > 0 && high < HIGHEST_HUMIDITY) {
        low = high;
        atLow = atHigh;
        high = high < 1 ? 1 : 2 * high;
        atHigh = gain(high);
    }
    while (atLow < 0 && low > LOWEST_HUMIDITY) {
        high = low;
        atHigh = atLow;
        low = std::max(low / 4, LOWEST_HUMIDITY);
        atLow = gain(low);
    }
    if (!(atLow >= 0 && atHigh <= 0))
        return false;
    // The rule of Illinois: false positions, of which a side that stays is halved.
    for (int i = 0; i < MAX_ITERATIONS && high - low > CONVERGED_HUMIDITY * high && atLow > atHigh; ++i) {
        const double middle = std::clamp(low + (high - low) * atLow / (atLow - atHigh), low, high);
        const double atMiddle = gain(middle);
        if (atMiddle > 0) {
            low = middle;
            atLow = atMiddle;
            atHigh /= 2;
        } else {
            high = middle;
            atHigh = atMiddle;
            atLow /= 2;
        }
    }
    return std::isfinite(gain((low + high) / 2));
}

/// Solves for a node of given balance. \return whether it was found; \p node and what the balance keeps are then its
template <typename Balance> bool solveNode(FaceNode & node, Balance && balance) {
    const FaceNode start = node;
    const auto step = [&](double damping) {
        NodeBalance at = balance(node);
        return solveDense(at.slopes, at.gain) ? move(node, -at.gain[0], -at.gain[1], damping) : NOT_A_NUMBER;
    };
    if (iterate(step, MAX_NEWTON_ITERATIONS))
        return true;
    node = start;
    return encloseNode(node, balance);
}

/// Replaces the balance of what is not solved by "stays where it is".
template <std::size_t N>
void pinInactive(std::array<std::array<double, N>, N> & jacobian, std::array<double, N> & residual, module_t module) {
    for (std::size_t i = 0; i < N; ++i) {
        const bool isHeatRow = i % 2 == 0;
        if ((isHeatRow && module == module_t::moisture) || (!isHeatRow && module == module_t::heat)) {
            jacobian[i].fill(0);
            jacobian[i][i] = -1;
            residual[i] = 0;
        }
    }
}

Model::FaceFlux result(const HalfCell::Flux & flux, double T, module_t module) {
    Model::FaceFlux r;
    if (module != module_t::moisture)
        r.conduction = flux.conduction;
    if (module != module_t::heat) {
        r.vapor = flux.vapor;
        r.liquid = flux.liquid;
    }
    r.enthalpy = r.vapor * enthalpyOfVapor(T) + r.liquid * enthalpyOfLiquid(T);
    return r;
}

/// One node shared by both half cells. Rows: heat with the latent part of vapour, moisture.
Model::FaceFlux perfectContact(const HalfCell & a, const HalfCell & b, const Thermodynamics & thermodynamics,
                               module_t module, FaceNodes * nodes) {
    const FaceNode nodeA = nodeAtCell(a);
    const FaceNode nodeB = nodeAtCell(b);
    FaceNode node{(nodeA.temperature + nodeB.temperature) / 2, std::sqrt(nodeA.humidity * nodeB.humidity)};
    HalfCell::Flux fa{};
    HalfCell::Flux fb{};
    const bool converged = solveNode(node, [&](FaceNode & at) {
        fa = a.flux(at, thermodynamics);
        fb = b.flux(at, thermodynamics);
        const double latent = latentHeat(module, at.temperature);
        NodeBalance balance{
            {fa.conduction + fb.conduction + latent * (fa.vapor + fb.vapor),
             fa.vapor + fb.vapor + fa.liquid + fb.liquid},
            {{{fa.conductionByT + fb.conductionByT + latent * (fa.vaporByT + fb.vaporByT),
               fa.conductionByPhi + fb.conductionByPhi + latent * (fa.vaporByPhi + fb.vaporByPhi)},
              {fa.vaporByT + fb.vaporByT + fa.liquidByT + fb.liquidByT,
               fa.vaporByPhi + fb.vaporByPhi + fa.liquidByPhi + fb.liquidByPhi}}                                                             }
        };
        pinInactive(balance.slopes, balance.gain, module);
        return balance;
    });
    if (!converged)
        fa.conduction = fa.vapor = NOT_A_NUMBER;
    // What the two sides disagree about at round-off is shared, so that nothing is made or lost.
    fa.vapor = (fa.vapor - fb.vapor) / 2;
    fa.liquid = (fa.liquid - fb.liquid) / 2;
    fa.conduction = (fa.conduction - fb.conduction) / 2;
    if (nodes != nullptr)
        *nodes = {node, node};
    return result(fa, node.temperature, module);
}

/// Two nodes with resistances between them. Rows: heat and moisture at a, heat and moisture at b.
Model::FaceFlux resistiveContact(const HalfCell & a, const HalfCell & b, const Contact & joint,
                                 const Thermodynamics & thermodynamics, module_t module, FaceNodes * nodes) {
    const ContactResistance & contact = joint.resistance;
    const double latent = latentHeat(module, (a.cell.temperature + b.cell.temperature) / 2);
    // A resistance of zero stands for a contact whose drop cannot be seen.
    const double heatLink = 1 / std::max(contact.heat, 1e-9);
    double vaporLink = 1 / std::max(contact.vapor, LEAST_VAPOR_RESISTANCE);
    const double liquidLink = contact.blocksLiquid ? 0 : 1 / std::max(contact.liquid, 1e2);
    FaceNode na = nodeAtCell(a);
    FaceNode nb = nodeAtCell(b);
    double conduction = 0;
    double vapor = 0;
    double liquid = 0;
    const bool converged = iterate([&](double damping) {
        const HalfCell::Flux fa = a.flux(na, thermodynamics);
        const HalfCell::Flux fb = b.flux(nb, thermodynamics);
        double vaporLinkByPhi = 0;
        double weightA = 0.5;
        if (joint.foil != nullptr) {
            const bool isForward = fa.vaporPressure >= fb.vaporPressure;
            const auto & resistance = isForward ? joint.foil->forward : joint.foil->backward;
            weightA = isForward ? joint.foil->forwardWeight : 1 - joint.foil->backwardWeight;
            const double humidity = weightA * na.humidity + (1 - weightA) * nb.humidity;
            constexpr double STEP = 1e-4;
            vaporLink = 1 / std::max(contact.vapor + resistance(std::min(humidity, 1.0)), LEAST_VAPOR_RESISTANCE);
            if (humidity + STEP < 1)
                vaporLinkByPhi =
                    (1 / std::max(contact.vapor + resistance(humidity + STEP), LEAST_VAPOR_RESISTANCE) - vaporLink) /
                    STEP;
        }
        conduction = heatLink * (na.temperature - nb.temperature);
        vapor = vaporLink * (fa.vaporPressure - fb.vaporPressure);
        liquid = liquidLink * (fb.suction - fa.suction);
        const double suctionAByPhi = -thermodynamics.kelvin(na.temperature) / na.humidity;
        const double suctionBByPhi = -thermodynamics.kelvin(nb.temperature) / nb.humidity;
        std::array<double, 4> r{
            fa.conduction - conduction + latent * (fa.vapor - vapor), fa.vapor + fa.liquid - vapor - liquid,
            fb.conduction + conduction + latent * (fb.vapor + vapor), fb.vapor + fb.liquid + vapor + liquid};
        const double vaT = vaporLink * fa.vaporPressureByT;
        const double drop = fa.vaporPressure - fb.vaporPressure;
        const double vaPhi = vaporLink * fa.vaporPressureByPhi + weightA * vaporLinkByPhi * drop;
        const double vbT = -vaporLink * fb.vaporPressureByT;
        const double vbPhi = -vaporLink * fb.vaporPressureByPhi + (1 - weightA) * vaporLinkByPhi * drop;
        const double laPhi = -liquidLink * suctionAByPhi;
        const double lbPhi = liquidLink * suctionBByPhi;
        std::array<std::array<double, 4>, 4> j{
            {{fa.conductionByT - heatLink + latent * (fa.vaporByT - vaT),
              fa.conductionByPhi + latent * (fa.vaporByPhi - vaPhi), heatLink - latent * vbT, -latent * vbPhi},
             {fa.vaporByT + fa.liquidByT - vaT, fa.vaporByPhi + fa.liquidByPhi - vaPhi - laPhi, -vbT, -vbPhi - lbPhi},
             {heatLink + latent * vaT, latent * vaPhi, fb.conductionByT - heatLink + latent * (fb.vaporByT + vbT),
              fb.conductionByPhi + latent * (fb.vaporByPhi + vbPhi)},
             {vaT, vaPhi + laPhi, fb.vaporByT + fb.liquidByT + vbT, fb.vaporByPhi + fb.liquidByPhi + vbPhi + lbPhi}}
        };
        pinInactive(j, r, module);
        if (!solveDense(j, r))
            return NOT_A_NUMBER;
        const double stepA = move(na, -r[0], -r[1], damping);
        const double stepB = move(nb, -r[2], -r[3], damping);
        return std::max(stepA, stepB);
    });
    // Through a link the fluxes are what the half cells agree on; phase may change on either side of it.
    const HalfCell::Flux fa = a.flux(na, thermodynamics);
    const HalfCell::Flux fb = b.flux(nb, thermodynamics);
    HalfCell::Flux flux{};
    const double moisture = converged ? (fa.vapor + fa.liquid - fb.vapor - fb.liquid) / 2 : NOT_A_NUMBER;
    flux.vapor = std::fabs(liquidLink) > 0 ? vapor : moisture;
    flux.liquid = moisture - flux.vapor;
    flux.conduction = (fa.conduction + latent * fa.vapor - fb.conduction - latent * fb.vapor) / 2 - latent * flux.vapor;
    if (!converged)
        flux.conduction = NOT_A_NUMBER;
    if (nodes != nullptr)
        *nodes = {na, nb};
    return result(flux, (na.temperature + nb.temperature) / 2, module);
}

/// Heat and water that the load brings to the surface node, with derivatives; towards the surface is positive.
struct Arrival {
    double heat, heatByT, heatByPhi;
    double water, waterByT, waterByPhi;
    double vapor;
};

Arrival arrival(const SurfaceLoad & load, const HalfCell::Flux & f, double T, double rain, double latent) {
    Arrival in{};
    in.vapor = load.vaporTransfer * (load.vaporPressure - f.vaporPressure) + load.vaporFlux;
    const double vaporByT = -load.vaporTransfer * f.vaporPressureByT;
    const double vaporByPhi = -load.vaporTransfer * f.vaporPressureByPhi;
    const double liquid = rain + load.liquidFlux;
    const double emitted = load.emissivity * STEFAN_BOLTZMANN * T * T * T;
    in.water = in.vapor + liquid;
    in.waterByT = vaporByT;
    in.waterByPhi = vaporByPhi;
    in.heat = load.heatTransfer * (load.airTemperature - T) + load.heatFlux + load.shortWave + load.longWave -
              emitted * T + latent * in.vapor + liquid * C_WATER * (load.temperatureOfWater(T) - T);
    in.heatByT = -load.heatTransfer - 4 * emitted + latent * vaporByT - liquid * C_WATER;
    in.heatByPhi = latent * vaporByPhi;
    return in;
}

/// Solves the surface node under \p rain that is all taken up; a fixed suction or temperature is kept.
HalfCell::Flux solveSurface(const HalfCell & inside, const SurfaceLoad & load, double rain, bool hasSuction,
                            double suction, FaceNode & node, const Thermodynamics & thermodynamics, module_t module) {
    HalfCell::Flux f{};
    const bool converged = solveNode(node, [&](FaceNode & at) {
        if (hasSuction)
            at.humidity = std::exp(-suction / thermodynamics.kelvin(at.temperature));
        f = inside.flux(at, thermodynamics);
        const double latent = latentHeat(module, at.temperature);
        const Arrival in = arrival(load, f, at.temperature, rain, latent);
        NodeBalance balance{
            {f.conduction + latent * f.vapor + in.heat, f.vapor + f.liquid + in.water},
            {{{f.conductionByT + latent * f.vaporByT + in.heatByT,
               f.conductionByPhi + latent * f.vaporByPhi + in.heatByPhi},
              {f.vaporByT + f.liquidByT + in.waterByT, f.vaporByPhi + f.liquidByPhi + in.waterByPhi}}                                        }
        };
        pinInactive(balance.slopes, balance.gain, module);
        if (load.hasTemperature) {
            balance.slopes[0] = {-1, 0};
            balance.gain[0] = load.airTemperature - at.temperature;
        }
        if (hasSuction) {
            balance.slopes[1] = {0, -1};
            balance.gain[1] = 0;
        }
        // A surface through which nothing passes keeps the state of its cell.
        const double fromCell[] = {inside.cell.temperature - at.temperature, inside.cell.humidity - at.humidity};
        for (std::size_t k = 0; k < 2; ++k)
            if (balance.slopes[k][k] == 0) {
                balance.slopes[k].fill(0);
                balance.slopes[k][k] = -1;
                balance.gain[k] = fromCell[k];
            }
        return balance;
    });
    if (!converged)
        f.conduction = f.vapor = NOT_A_NUMBER;
    return f;
}

} // namespace

Model::FaceFlux eliminateContact(const HalfCell & a, const HalfCell & b, const Contact & contact,
                                 const Thermodynamics & thermodynamics, module_t module, FaceNodes * nodes) {
    const std::optional<double> ofA = a.constantResistance();
    const std::optional<double> ofB = b.constantResistance();
    if (nodes == nullptr && ofA && ofB) {
        Model::FaceFlux flux;
        flux.conduction = (a.cell.temperature - b.cell.temperature) / (*ofA + contact.resistance.heat + *ofB);
        return flux;
    }
    return contact.resistance.isPerfect() ? perfectContact(a, b, thermodynamics, module, nodes)
                                          : resistiveContact(a, b, contact, thermodynamics, module, nodes);
}

SurfaceState eliminateSurface(const HalfCell & inside, const SurfaceLoad & given, const Thermodynamics & thermodynamics,
                              module_t module) {
    SurfaceLoad load = given;
    if (given.heatDirection != 0) {
        // What only heats acts on a surface that were colder without it.
        load.heatDirection = 0;
        load.hasTemperature = false;
        load.heatTransfer = 0;
        const SurfaceState alone = eliminateSurface(inside, load, thermodynamics, module);
        if (given.heatDirection * (given.airTemperature - alone.temperature) <= 0)
            return alone;
        load = given;
    }
    if (module == module_t::heat)
        load.rain = load.liquidFlux = 0;
    FaceNode node = nodeAtCell(inside);
    HalfCell::Flux f =
        solveSurface(inside, load, load.rain, load.hasSuction, load.suction, node, thermodynamics, module);
    SurfaceState state;
    // A surface that is open to rain and air holds no water under pressure: what it cannot take, of rain or of
    // condensate, runs off.
    const bool isOpen = load.rain > 0 || load.vaporTransfer > 0;
    if (!load.hasSuction && isOpen && module != module_t::heat && (f.suction < 0 || !std::isfinite(f.suction))) {
        node = nodeAtCell(inside);
        f = solveSurface(inside, load, load.rain, true, 0, node, thermodynamics, module);
        state.runoff = std::max(0.0, arrival(load, f, node.temperature, load.rain, 0).water + f.vapor + f.liquid);
    }

    state.temperature = node.temperature;
    state.suction = f.suction;
    state.vaporPressure =
        module == module_t::heat ? node.humidity * saturationPressure(node.temperature) : f.vaporPressure;
    if (module != module_t::heat) {
        state.vaporFlux = -f.vapor;
        state.liquidFlux = -f.liquid;
        state.vaporArrival = arrival(load, f, node.temperature, load.rain, 0).vapor;
        state.liquidArrival = std::max(0.0, load.rain - state.runoff) + load.liquidFlux;
        state.vaporEnthalpy = state.vaporArrival * enthalpyOfVapor(node.temperature);
        state.liquidEnthalpy =
            (load.rain + load.liquidFlux) * enthalpyOfLiquid(load.temperatureOfWater(node.temperature)) -
            state.runoff * enthalpyOfLiquid(node.temperature);
    }
    if (module != module_t::moisture) {
        state.conduction = -f.conduction;
        state.convection = load.heatTransfer * (load.airTemperature - node.temperature);
        state.longWave = load.longWave - load.emissivity * STEFAN_BOLTZMANN * std::pow(node.temperature, 4);
    }
    state.enthalpyFlux =
        state.vaporFlux * enthalpyOfVapor(node.temperature) + state.liquidFlux * enthalpyOfLiquid(node.temperature);
    return state;
}

} // namespace SOLVER
