#include <HYGRION/ClimateCond.h>

#include "XmlParts.h"

#include <CCM/ClimateDataLoader.h>
#include <KOR/UnitList.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[ClimateCond::readXML]",
    .missingAttr = "Expected '%1' attribute in ClimateCondition.",
    .unknownTag = "Unknown XML tag with name '%1' in ClimateCondition element.",
    .wrapping = {},
    .inChild = "Error reading element '%1' in ClimateCondition element.",
};
constexpr NamedValueTexts VALUES{.where = TEXTS.where};

using Kind = ClimateCond::kind_t;
using Para = ClimateCond::para_t;

constexpr std::string_view AMPLITUDE1 =
    "Parameter 'Amplitude1' in climate condition '%1' must not be negative or zero!";
constexpr std::string_view PERIOD1 = "Parameter 'OscPeriod1' in climate condition '%1' must not be negative or zero!";
constexpr std::string_view AMPLITUDE2 =
    "Parameter 'Amplitude2' in climate condition '%1' must not be negative or zero!";
constexpr std::string_view PERIOD2 = "Parameter 'OscPeriod2' in climate condition '%1' must not be negative or zero!";

/// What a kind cannot do without, and the text where it must be positive.
struct Required {
    Kind kind;
    Para para;
    std::string_view notPositive;
};
constexpr Required REQUIRED[] = {
    {Kind::Constant,    Para::ConstantValue, {}        },
    {Kind::Sinus,       Para::MeanValue,     {}        },
    {Kind::Sinus,       Para::Amplitude1,    AMPLITUDE1},
    {Kind::Sinus,       Para::OscPeriod1,    PERIOD1   },
    {Kind::Sinus,       Para::PhaseShift1,   {}        },
    {Kind::DoubleSinus, Para::MeanValue,     {}        },
    {Kind::DoubleSinus, Para::Amplitude1,    AMPLITUDE1},
    {Kind::DoubleSinus, Para::OscPeriod1,    PERIOD1   },
    {Kind::DoubleSinus, Para::PhaseShift1,   {}        },
    {Kind::DoubleSinus, Para::Amplitude2,    AMPLITUDE2},
    {Kind::DoubleSinus, Para::OscPeriod2,    PERIOD2   },
    {Kind::DoubleSinus, Para::PhaseShift2,   {}        },
};

/// What climate files call a quantity, where that is another word.
struct FileWord {
    ClimateCond::condition_t type;
    CCM::quantity_t quantity;
};
constexpr FileWord FILE_WORDS[] = {
    {ClimateCond::condition_t::RainFluxHorizontal,     CCM::Q_RAIN               },
    {ClimateCond::condition_t::SWRadiationDiffuse,     CCM::Q_DIFFUSE_RADIATION  },
    {ClimateCond::condition_t::LWRadiationSkyEmission, CCM::Q_LONG_WAVE_RADIATION},
    {ClimateCond::condition_t::GasPressure,            CCM::Q_AIR_PRESSURE       },
};

/// What no climate exceeds, in base units.
struct Bounds {
    ClimateCond::condition_t type;
    double min, max;
};
using Type = ClimateCond::condition_t;
constexpr double UNBOUNDED = std::numeric_limits<double>::infinity();
constexpr Bounds BOUNDS[] = {
    {Type::Temperature,             173.15, 473.15   }, // of fluids in pipes as well
    {Type::SkyTemperature,          100,    373.15   },
    {Type::RelativeHumidity,        0,      1        },
    {Type::VaporPressure,           0,      1e6      },
    {Type::CloudCoverage,           0,      1        },
    {Type::WindVelocity,            0,      200      },
    {Type::HeatTransferCoefficient, 0,      1e6      },
    {Type::RainFluxNormal,          0,      1        }, // 3600 mm/h
    {Type::RainFluxHorizontal,      0,      1        },
    {Type::FluidChangeRate,         0,      UNBOUNDED},
};
/// What is measured may lie beyond them by this share of the upper one.
constexpr double MEASURING_ERROR = 0.01;

bool isQuantity(ClimateCond::condition_t type, const std::string & word) {
    return word == KeywordList::Keyword(type) ||
           std::any_of(std::begin(FILE_WORDS), std::end(FILE_WORDS), [&](const FileWord & known) {
               return known.type == type && CCM::CLIMATE_QUANTITIES[known.quantity].keyword == word;
           });
}

bool needsData(Kind kind) {
    return kind == Kind::TabulatedData || kind == Kind::CCM;
}

[[noreturn]] void fail(const std::string & message, const char * where) {
    throw KOR::Exception(message, where);
}

/// Refuses time points [s] that cannot be repeated every year.
void checkCyclic(const std::vector<double> & timePoints, const char * where) {
    const double last = timePoints.back();
    if (last > CCM::SECONDS_OF_YEAR)
        fail(KOR::text("Last time point (=%1 s) in climate data file is larger than 365 days (= 1 year), which is the "
                       "maximum allowed time point for cyclic climate data usage.",
                       last),
             where);
    if (timePoints.front() == 0 && last == CCM::SECONDS_OF_YEAR)
        fail("Climate data file contains time point 0 and 365 d at the same time which is not allowed in cyclic "
             "climate data usage.",
             where);
}

} // namespace

// *** The definition ***

KOR::Unit ClimateCond::baseUnit() const {
    return KOR::Unit(KeywordList::Unit(m_type)).base();
}

void ClimateCond::readXML(const TiXmlElement & element) {
    ClimateCond read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        read.m_type = xml::keywordAttribute<condition_t>(reader, "type");
        read.m_kind = xml::keywordAttribute<kind_t>(reader, "kind");
        reader.children({
            xml::any("KOR:Parameter", xml::into(read.m_para, VALUES)),
            xml::any("KOR:Flag", xml::into(read.m_flag, VALUES)),
            xml::once("Filename", xml::into(read.m_filename)),
            xml::once("Species", xml::into(read.m_species)),
        });
    });
    *this = std::move(read);
}

void ClimateCond::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "ClimateCondition");
    xml::setAttribute(element, "name", m_name);
    xml::setAttribute(element, "type", KeywordList::Keyword(m_type));
    if (m_kind)
        xml::setAttribute(element, "kind", KeywordList::Keyword(*m_kind));
    m_para.writeXML(element);
    m_flag.writeXML(element);
    xml::appendGiven(element, "Filename", m_filename.str());
    xml::appendGiven(element, "Species", m_species);
}

void ClimateCond::requireParameters(const char * where) const {
    if (!m_kind)
        fail(KOR::text("Missing kind type in climate condition '%1'!", m_name), where);
    for (const Required & required : REQUIRED)
        if (required.kind == *m_kind && !m_para.contains(required.para))
            fail(KOR::text("Missing parameter in climate condition '%1'!", m_name), where);
    for (const Required & required : REQUIRED)
        if (required.kind == *m_kind && !required.notPositive.empty() && m_para.find(required.para)->ioValue() <= 0)
            fail(KOR::text(required.notPositive, m_name), where);
}

/// \param low, high least and greatest value before shift and clipping [base unit]
void ClimateCond::checkBounds(double low, double high, const char * where) const {
    const auto bounds =
        std::find_if(std::begin(BOUNDS), std::end(BOUNDS), [this](const Bounds & row) { return row.type == m_type; });
    if (bounds == std::end(BOUNDS))
        return;
    const double shift = m_para.contains(para_t::ShiftValue) ? difference(para_t::ShiftValue, where) : 0;
    const auto clipped = [&](double value) {
        value += shift;
        if (m_para.contains(para_t::MaxClippingValue))
            value = std::min(value, baseValue(para_t::MaxClippingValue, where));
        if (m_para.contains(para_t::MinClippingValue))
            value = std::max(value, baseValue(para_t::MinClippingValue, where));
        return value;
    };
    const bool isMeasured = needsData(*m_kind);
    const double tolerance = isMeasured && std::isfinite(bounds->max) ? MEASURING_ERROR * bounds->max : 0;
    // Instruments give a little less than nothing where there is nothing.
    const double least = bounds->min - (m_type == Type::RelativeHumidity ? 0 : tolerance);
    const auto isWithin = [&](double value) { return value >= least && value <= bounds->max + tolerance; };
    low = clipped(low);
    high = clipped(high);
    if (isWithin(low) && isWithin(high))
        return;
    const bool isTooLow = !(low >= least);
    const KOR::Unit unit(KeywordList::Unit(m_type));
    const auto shown = [&](double number) {
        KOR::UnitList::instance().convert(baseUnit(), unit, number);
        return KOR::toString(number, 6);
    };
    const std::string allowed = std::isfinite(bounds->max)
                                    ? KOR::text("lie within %1..%2", shown(bounds->min), shown(bounds->max))
                                    : KOR::text("be at least %1", shown(bounds->min));
    fail(KOR::text("Climate condition '%1': '%2' goes %3 to %4 %5, it must %6 %5%7.", m_name,
                   KeywordList::Keyword(m_type), isTooLow ? "down" : "up", shown(isTooLow ? low : high), unit.name(),
                   allowed, isMeasured ? "; 'MinClippingValue' and 'MaxClippingValue' cut the data off" : ""),
         where);
}

void ClimateCond::checkParameters() const {
    constexpr const char * WHERE = "[ClimateCond::checkParameters]";
    requireParameters(WHERE);
    if (m_kind == kind_t::TabulatedData && m_filename.empty())
        fail(KOR::text("Climate condition '%1' has no climate data file.", m_name), WHERE);
    if (m_para.contains(para_t::MinClippingValue) && m_para.contains(para_t::MaxClippingValue) &&
        baseValue(para_t::MinClippingValue, WHERE) > baseValue(para_t::MaxClippingValue, WHERE))
        fail(KOR::text("Climate condition '%1': parameter 'MinClippingValue' is larger than 'MaxClippingValue'.",
                       m_name),
             WHERE);
    if (m_kind == kind_t::Constant) {
        const double value = baseValue(para_t::ConstantValue, WHERE);
        checkBounds(value, value, WHERE);
    } else if (m_kind == kind_t::Sinus || m_kind == kind_t::DoubleSinus) {
        double swing = wave(para_t::Amplitude1, para_t::OscPeriod1, para_t::PhaseShift1, WHERE).m_amplitude;
        if (m_kind == kind_t::DoubleSinus)
            swing += wave(para_t::Amplitude2, para_t::OscPeriod2, para_t::PhaseShift2, WHERE).m_amplitude;
        const double mean = baseValue(para_t::MeanValue, WHERE);
        checkBounds(mean - swing, mean + swing, WHERE);
    }
}

// *** Calculation ***

double ClimateCond::baseValue(para_t key, const char * where) const {
    const KOR::Parameter & parameter = *m_para.find(key);
    if (parameter.ioUnit().base() != baseUnit())
        fail(KOR::text("Unit '%1' of parameter '%2' in climate condition '%3' does not fit quantity '%4'.",
                       parameter.ioUnit().name(), parameter.name(), m_name, KeywordList::Keyword(m_type)),
             where);
    return parameter.value();
}

double ClimateCond::difference(para_t key, const char * where) const {
    const double value = baseValue(key, where);
    const KOR::Parameter & parameter = *m_para.find(key);
    return parameter.ioUnit() == KOR::Unit("C") ? parameter.ioValue() : value;
}

ClimateCond::Calculation::Wave ClimateCond::wave(para_t amplitude, para_t period, para_t phase,
                                                 const char * where) const {
    Calculation::Wave result;
    result.m_amplitude = difference(amplitude, where);
    const KOR::Parameter & shift = *m_para.find(phase);
    const auto isTime = [](const KOR::Parameter & parameter) { return parameter.ioUnit().base() == KOR::Unit("s"); };
    const auto requireTime = [&](const KOR::Parameter & parameter, bool isFulfilled) {
        if (!isFulfilled)
            fail(KOR::text("Unit '%1' of parameter '%2' in climate condition '%3' is not a time.",
                           parameter.ioUnit().name(), parameter.name(), m_name),
                 where);
    };
    requireTime(*m_para.find(period), isTime(*m_para.find(period)));
    requireTime(shift, isTime(shift) || shift.ioUnit().base() == KOR::Unit("Rad"));
    result.m_frequency = 2 * std::numbers::pi / m_para.find(period)->get_value("s");
    result.m_phase =
        shift.ioUnit().base() == KOR::Unit("Rad") ? shift.get_value("Rad") : result.m_frequency * shift.get_value("s");
    return result;
}

void ClimateCond::setData(const CCM::CCDFile & climateData, int startYear) {
    constexpr const char * WHERE = "[ClimateCond::setData]";
    if (!isQuantity(m_type, climateData.quantity))
        fail(KOR::text("Quantity of climate data file '%1' does not match requested quantity '%2' of climate condition "
                       "definition.",
                       climateData.quantity, KeywordList::Keyword(m_type)),
             WHERE);
    if (climateData.timePoints.empty() || climateData.values.empty())
        fail("Missing data in climate data file.", WHERE);
    if (m_flag.isEnabled(flag_t::Cyclic))
        checkCyclic(climateData.timePoints, WHERE);
    Calculation calculation;
    try {
        std::vector<double> values = climateData.values;
        KOR::UnitList::instance().convert(KOR::Unit(climateData.unit), baseUnit(), values);
        calculation.m_data.setValues(climateData.timePoints, values);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Error creating linear spline for climate data interpolation.", WHERE);
    }
    calculation.m_startYear = startYear;
    m_calculation = std::move(calculation);
}

/// Repeats the last point before the year and the first one behind it.
void ClimateCond::closeYear() {
    checkCyclic(m_calculation.m_data.x(), "[ClimateCond::prepareCalculation]"); // the flag may have been set since
    std::vector<double> x = m_calculation.m_data.x();
    std::vector<double> y = m_calculation.m_data.y();
    const double firstX = x.front();
    const double firstY = y.front();
    if (firstX > 0) {
        x.insert(x.begin(), x.back() - CCM::SECONDS_OF_YEAR);
        y.insert(y.begin(), y.back());
    }
    if (x.back() < CCM::SECONDS_OF_YEAR) {
        x.push_back(firstX + CCM::SECONDS_OF_YEAR);
        y.push_back(firstY);
    }
    m_calculation.m_series.setValues(x, y);
}

void ClimateCond::prepareCalculation() {
    constexpr const char * WHERE = "[ClimateCond::prepareCalculation]";
    requireParameters(WHERE);
    Calculation & calculation = m_calculation;
    calculation.m_isPrepared = false;
    calculation.m_interpolates = m_flag.isEnabled(flag_t::UseInterpolation);
    calculation.m_extends = m_flag.isEnabled(flag_t::ExtendData);
    calculation.m_isCyclic = m_flag.isEnabled(flag_t::Cyclic);
    calculation.m_waves = {};
    if (m_kind == kind_t::Constant)
        calculation.m_constant = baseValue(para_t::ConstantValue, WHERE);
    if (m_kind == kind_t::Sinus || m_kind == kind_t::DoubleSinus) {
        calculation.m_constant = baseValue(para_t::MeanValue, WHERE);
        calculation.m_waves[0] = wave(para_t::Amplitude1, para_t::OscPeriod1, para_t::PhaseShift1, WHERE);
    }
    if (m_kind == kind_t::DoubleSinus)
        calculation.m_waves[1] = wave(para_t::Amplitude2, para_t::OscPeriod2, para_t::PhaseShift2, WHERE);
    if (needsData(*m_kind)) {
        if (calculation.m_data.empty())
            fail("Climate data not loaded. Call setData() before prepareCalculation()!", WHERE);
        const auto [low, high] = std::minmax_element(calculation.m_data.y().begin(), calculation.m_data.y().end());
        checkBounds(*low, *high, WHERE);
        if (!calculation.m_isCyclic && calculation.m_startYear == NO_YEAR)
            fail(
                "Missing start year for continuous (non-cyclic) calculation mode. Call setData() with valid start year "
                "before prepareCalculation()!",
                WHERE);
        try {
            if (calculation.m_isCyclic)
                closeYear();
            else
                calculation.m_series = calculation.m_data;
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(
                ex,
                KOR::text("Initializing of climate data in climate condition '%1' for calculation failed "
                          "with error message: %2",
                          m_name, ex.message()),
                WHERE);
        }
    }
    calculation.m_shift = m_para.contains(para_t::ShiftValue) ? difference(para_t::ShiftValue, WHERE) : 0;
    const double infinity = std::numeric_limits<double>::infinity();
    calculation.m_minimum =
        m_para.contains(para_t::MinClippingValue) ? baseValue(para_t::MinClippingValue, WHERE) : -infinity;
    calculation.m_maximum =
        m_para.contains(para_t::MaxClippingValue) ? baseValue(para_t::MaxClippingValue, WHERE) : infinity;
    calculation.m_isPrepared = true;
}

double ClimateCond::dataValue(double t) const {
    const KOR::LinearSpline & series = m_calculation.m_series;
    if (m_calculation.m_isCyclic) {
        t = std::fmod(t, CCM::SECONDS_OF_YEAR);
        if (t < 0)
            t += CCM::SECONDS_OF_YEAR;
    } else if (t < series.x().front() || (t > series.x().back() && !m_calculation.m_extends)) {
        fail(KOR::text("Time point %1 s out of range %2..%3 s of climatic data for climate condition '%4'.", t,
                       series.x().front(), series.x().back(), m_name),
             "[ClimateCond::calcCurrentValue]");
    }
    return m_calculation.m_interpolates ? series.value(t) : series.nonInterpolatedValue(t);
}

double ClimateCond::calcCurrentValue(double t) const {
    const Calculation & calculation = m_calculation;
    if (!calculation.m_isPrepared)
        fail(KOR::text("Climate condition '%1' is not prepared. Call prepareCalculation() before calcCurrentValue()!",
                       m_name),
             "[ClimateCond::calcCurrentValue]");
    double value = calculation.m_constant;
    if (m_kind == kind_t::External) {
        if (std::isnan(calculation.m_externalValue))
            fail(KOR::text("Climate condition '%1' has no value from the external model.", m_name),
                 "[ClimateCond::calcCurrentValue]");
        value = calculation.m_externalValue;
    } else if (needsData(*m_kind)) {
        value = dataValue(t);
    } else {
        for (const Calculation::Wave & wave : calculation.m_waves)
            value += wave.m_amplitude * std::sin(wave.m_frequency * t - wave.m_phase);
    }
    return std::max(calculation.m_minimum, std::min(calculation.m_maximum, value + calculation.m_shift));
}

} // namespace HYGRION
