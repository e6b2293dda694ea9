#include "ClimateDriver.h"

#include <KOR/Time.h>

#include <algorithm>
#include <cmath>

namespace SOLVER {

std::uint32_t ClimateDriver::addGroup(std::vector<BoundaryLaw> laws) {
    m_groups.push_back(std::move(laws));
    return static_cast<std::uint32_t>(m_groups.size() - 1);
}

std::uint32_t ClimateDriver::addFieldLaw(FieldLaw law) {
    m_fieldLaws.push_back(std::move(law));
    return static_cast<std::uint32_t>(m_fieldLaws.size() - 1);
}

void ClimateDriver::connectSun(BoundaryLaw & law, const CCM::SolarRadiationModel & place) {
    const Sky sky{law.signals.signal(QuantitySignals::Quantity::SWRadiationDirect),
                  law.signals.signal(QuantitySignals::Quantity::SWRadiationDiffuse)};
    const auto known = std::find_if(m_skies.begin(), m_skies.end(), [&](const Sky & other) {
        return other.direct == sky.direct && other.diffuse == sky.diffuse;
    });
    law.sun = static_cast<std::uint32_t>(known - m_skies.begin());
    if (known == m_skies.end()) {
        m_skies.push_back(sky);
        m_suns.push_back(place);
    }
    law.sunSurface = m_suns[law.sun].addSurface(law.position.inclination, law.position.orientation);
}

ClimateDriver::Scratch ClimateDriver::makeScratch() const {
    Scratch scratch;
    scratch.values.resize(m_signals.size());
    scratch.suns = m_suns;
    scratch.surfaces.resize(m_groups.size());
    scratch.cells.resize(m_fieldLaws.size());
    return scratch;
}

void ClimateDriver::evaluate(double time, Scratch & scratch, ModelInput::Loads loads) const {
    if (time != scratch.time) {
        m_signals.evaluate(time, scratch.values);
        const double ofYear = time - KOR::SECONDS_PER_YEAR * std::floor(time / KOR::SECONDS_PER_YEAR);
        for (std::size_t i = 0; i < m_skies.size(); ++i) {
            CCM::SolarRadiationModel & sun = scratch.suns[i];
            double direct = scratch.values[m_skies[i].direct];
            if (!m_signals.isNormalRadiation(m_skies[i].direct))
                direct = sun.convertHorizontalToNormalRadiation(ofYear, direct);
            sun.setRadiation(ofYear, direct, scratch.values[m_skies[i].diffuse]);
        }
        const ClimateMoment moment{time, scratch.values, scratch.suns};
        for (std::size_t g = 0; g < m_groups.size(); ++g) {
            SurfaceLoad & load = scratch.surfaces[g] = {};
            for (const BoundaryLaw & law : m_groups[g])
                if (law.active.contains(time))
                    law.apply(law, moment, load);
        }
        for (std::size_t i = 0; i < m_fieldLaws.size(); ++i) {
            const FieldLaw & law = m_fieldLaws[i];
            CellLoad & load = scratch.cells[i] = law.limits;
            if (!law.active.contains(time))
                continue;
            law.apply(law, moment, load);
            if (law.signals.has(QuantitySignals::Quantity::Percentage))
                scale(load, law.signals.value(moment, QuantitySignals::Quantity::Percentage));
        }
        scratch.time = time;
    }
    for (std::size_t s = 0; s < m_groupOfSurface.size(); ++s)
        loads.surfaces[s] = scratch.surfaces[m_groupOfSurface[s]];
    for (std::size_t c = 0; c < m_cells.size(); ++c) {
        CellLoad & load = loads.cells[c] = scratch.cells[m_cells[c].law];
        scale(load, m_cells[c].factor);
        load.maxMoisture = std::min(load.maxMoisture, m_cells[c].maxMoisture);
    }
}

std::optional<PipeFlow> ClimateDriver::pipeFlow(double time, std::size_t surface, Scratch & scratch) const {
    const std::vector<BoundaryLaw> & laws = m_groups[m_groupOfSurface.at(surface)];
    const auto isPipe = [](const BoundaryLaw & law) { return law.isPipe(); };
    if (std::count_if(laws.begin(), laws.end(), isPipe) != 1)
        return {};
    if (time != scratch.time)
        m_signals.evaluate(time, scratch.values);
    scratch.time = time;
    return std::find_if(laws.begin(), laws.end(), isPipe)->pipeFlow({time, scratch.values, scratch.suns});
}

JumpTable ClimateDriver::jumps() const {
    JumpTable table;
    m_signals.addJumps(table);
    const auto addActive = [&table](const ActiveTimes & active) {
        for (const auto & interval : active.intervals())
            for (const double time : interval)
                if (std::isfinite(time))
                    table.add(time, false);
    };
    const auto addLaw = [&](const BoundaryLaw & law) {
        using Quantity = QuantitySignals::Quantity;
        addActive(law.active);
        if (law.isRain() && law.hasMinimum)
            m_signals.addSnowJumps(table,
                                   law.signals.signal(law.signals.has(Quantity::RainFluxNormal)
                                                          ? Quantity::RainFluxNormal
                                                          : Quantity::RainFluxHorizontal),
                                   law.signals.signal(Quantity::Temperature), law.minimum);
    };
    for (const auto & group : m_groups)
        std::for_each(group.begin(), group.end(), addLaw);
    for (const FieldLaw & law : m_fieldLaws) {
        addActive(law.active);
        std::for_each(law.rain.begin(), law.rain.end(), addLaw);
    }
    table.finish();
    return table;
}

} // namespace SOLVER
