#include "outputs/HygOutputTexts.h"

#include "HygFormat.h"

#include <KOR/UnitList.h>

#include <QCoreApplication>
#include <QStringList>

namespace {

using HYGRION::Interval;
using HYGRION::OutputFile;

struct Text {
    Q_DECLARE_TR_FUNCTIONS(HygOutputTexts)
};

struct QuantityRow {
    std::string_view keyword;
    const char * text;
};

// clang-format off
constexpr QuantityRow QUANTITIES[] = {
    {"Temperature",                        QT_TRANSLATE_NOOP("HygOutputTexts", "Temperature")},
    {"RelativeHumidity",                   QT_TRANSLATE_NOOP("HygOutputTexts", "Relative humidity")},
    {"VaporPressure",                      QT_TRANSLATE_NOOP("HygOutputTexts", "Vapour pressure")},
    {"CapillaryPressure",                  QT_TRANSLATE_NOOP("HygOutputTexts", "Capillary pressure")},
    {"MoistureContent",                    QT_TRANSLATE_NOOP("HygOutputTexts", "Moisture content by volume")},
    {"MoistureMassDensity",                QT_TRANSLATE_NOOP("HygOutputTexts", "Moisture mass by volume")},
    {"MoistureMass",                       QT_TRANSLATE_NOOP("HygOutputTexts", "Moisture mass")},
    {"MoistureContentMassByMass",          QT_TRANSLATE_NOOP("HygOutputTexts", "Moisture content by mass")},
    {"OverhygroscopicMoistureMassDensity", QT_TRANSLATE_NOOP("HygOutputTexts", "Overhygroscopic moisture by volume")},
    {"LiquidMoistureMassDensity",          QT_TRANSLATE_NOOP("HygOutputTexts", "Unfrozen moisture by volume")},
    {"IceMassDensity",                     QT_TRANSLATE_NOOP("HygOutputTexts", "Ice mass by volume")},
    {"IceContent",                         QT_TRANSLATE_NOOP("HygOutputTexts", "Ice content by volume")},
    {"LiquidSaturation",                   QT_TRANSLATE_NOOP("HygOutputTexts", "Saturation with liquid water")},
    {"ThermalConductivity",                QT_TRANSLATE_NOOP("HygOutputTexts", "Thermal conductivity")},
    {"EnergyDensity",                      QT_TRANSLATE_NOOP("HygOutputTexts", "Energy by volume")},
    {"Energy",                             QT_TRANSLATE_NOOP("HygOutputTexts", "Energy")},
    {"ThermalExpansionX",                  QT_TRANSLATE_NOOP("HygOutputTexts", "Thermal strain in x")},
    {"ThermalExpansionY",                  QT_TRANSLATE_NOOP("HygOutputTexts", "Thermal strain in y")},
    {"ThermalExpansionZ",                  QT_TRANSLATE_NOOP("HygOutputTexts", "Thermal strain in z")},
    {"HygricExpansionX",                   QT_TRANSLATE_NOOP("HygOutputTexts", "Hygric strain in x")},
    {"HygricExpansionY",                   QT_TRANSLATE_NOOP("HygOutputTexts", "Hygric strain in y")},
    {"HygricExpansionZ",                   QT_TRANSLATE_NOOP("HygOutputTexts", "Hygric strain in z")},
    {"SourceHeat",                         QT_TRANSLATE_NOOP("HygOutputTexts", "Heat of sources")},
    {"SourceMoisture",                     QT_TRANSLATE_NOOP("HygOutputTexts", "Water of sources")},
    {"ThermalLoadGroundWaterFlow",         QT_TRANSLATE_NOOP("HygOutputTexts", "Heat of ground water or heat exchanger")},
    {"TotalFluxHeat",                      QT_TRANSLATE_NOOP("HygOutputTexts", "Heat flux, all mechanisms")},
    {"FluxHeatConduction",                 QT_TRANSLATE_NOOP("HygOutputTexts", "Heat flux by conduction")},
    {"FluxHeatEnthalpy",                   QT_TRANSLATE_NOOP("HygOutputTexts", "Heat flux with vapour and liquid")},
    {"FluxHeatConvection",                 QT_TRANSLATE_NOOP("HygOutputTexts", "Heat flux from the air")},
    {"FluxHeatShortWave",                  QT_TRANSLATE_NOOP("HygOutputTexts", "Short-wave radiation absorbed")},
    {"FluxHeatLongWave",                   QT_TRANSLATE_NOOP("HygOutputTexts", "Long-wave radiation, net")},
    {"FluxHeatVapor",                      QT_TRANSLATE_NOOP("HygOutputTexts", "Heat flux with vapour from the air")},
    {"FluxHeatRain",                       QT_TRANSLATE_NOOP("HygOutputTexts", "Heat flux with rain")},
    {"TotalFluxMoisture",                  QT_TRANSLATE_NOOP("HygOutputTexts", "Moisture flux, vapour and liquid")},
    {"FluxVapor",                          QT_TRANSLATE_NOOP("HygOutputTexts", "Vapour flux")},
    {"FluxLiquid",                         QT_TRANSLATE_NOOP("HygOutputTexts", "Liquid flux")},
    {"FluxVaporMaterial",                  QT_TRANSLATE_NOOP("HygOutputTexts", "Vapour flux in the material")},
    {"FluxLiquidMaterial",                 QT_TRANSLATE_NOOP("HygOutputTexts", "Liquid flux in the material")},
    {"FluxRain",                           QT_TRANSLATE_NOOP("HygOutputTexts", "Rain on the surface")},
    {"FluxRunoff",                         QT_TRANSLATE_NOOP("HygOutputTexts", "Water running off")},
    {"AirTemperature",                     QT_TRANSLATE_NOOP("HygOutputTexts", "Air temperature before the surface")},
    {"AirVaporPressure",                   QT_TRANSLATE_NOOP("HygOutputTexts", "Vapour pressure of the air before the surface")},
    {"AirRelativeHumidity",                QT_TRANSLATE_NOOP("HygOutputTexts", "Relative humidity of the air before the surface")},
    {"PipeCollectorTr",                    QT_TRANSLATE_NOOP("HygOutputTexts", "Return temperature of a pipe")},
    {"PipeCollectorQdot",                  QT_TRANSLATE_NOOP("HygOutputTexts", "Heat that a pipe gives")},
    {"PipeCollectorT0",                    QT_TRANSLATE_NOOP("HygOutputTexts", "Inlet temperature of a pipe")},
    {"PipeCollectorHP",                    QT_TRANSLATE_NOOP("HygOutputTexts", "Heat transfer coefficient of a pipe")},
    {"LayerMoistureMass",                  QT_TRANSLATE_NOOP("HygOutputTexts", "Moisture mass of each block")},
    {"LayerEnergy",                        QT_TRANSLATE_NOOP("HygOutputTexts", "Energy of each block")},
};
// By the enumerations' order.
constexpr const char * SPACE_TYPES[] = {
    QT_TRANSLATE_NOOP("HygOutputTexts", "each cell or side"),
    QT_TRANSLATE_NOOP("HygOutputTexts", "mean"),
    QT_TRANSLATE_NOOP("HygOutputTexts", "integral or sum"),
    QT_TRANSLATE_NOOP("HygOutputTexts", "smallest"),
    QT_TRANSLATE_NOOP("HygOutputTexts", "largest"),
};
constexpr const char * TIME_TYPES[] = {
    QT_TRANSLATE_NOOP("HygOutputTexts", "at the time"),
    QT_TRANSLATE_NOOP("HygOutputTexts", "mean since the last time"),
    QT_TRANSLATE_NOOP("HygOutputTexts", "integral since the start"),
    QT_TRANSLATE_NOOP("HygOutputTexts", "smallest since the last time"),
    QT_TRANSLATE_NOOP("HygOutputTexts", "largest since the last time"),
};
// clang-format on

QString shown(const Interval & interval, Interval::para_t key) {
    const KOR::Parameter * given = interval.m_para.find(key);
    if (given == nullptr)
        return {};
    return HygFormat::value(given->ioValue(), QString::fromStdString(given->ioUnit().name()), 6);
}

} // namespace

QString HygOutputTexts::quantity(std::string_view keyword) {
    for (const QuantityRow & row : QUANTITIES)
        if (row.keyword == keyword)
            return Text::tr(row.text);
    return QString::fromUtf8(keyword.data(), static_cast<int>(keyword.size()));
}

QString HygOutputTexts::spaceType(OutputFile::space_type_t type) {
    return Text::tr(SPACE_TYPES[static_cast<std::size_t>(type)]);
}

QString HygOutputTexts::timeType(OutputFile::time_type_t type) {
    return Text::tr(TIME_TYPES[static_cast<std::size_t>(type)]);
}

QString HygOutputTexts::schedule(const HYGRION::OutputGrid & grid) {
    QStringList parts;
    for (const Interval & interval : grid.m_intervals) {
        QString part = Text::tr("every %1").arg(shown(interval, Interval::para_t::StepSize));
        if (const QString start = shown(interval, Interval::para_t::Start); interval.start() > 0)
            part += QLatin1Char(' ') + Text::tr("from %1").arg(start);
        if (const QString end = shown(interval, Interval::para_t::End); !end.isEmpty())
            part += QLatin1Char(' ') + Text::tr("to %1").arg(end);
        else if (const QString duration = shown(interval, Interval::para_t::Duration); !duration.isEmpty())
            part += QLatin1Char(' ') + Text::tr("for %1").arg(duration);
        parts << part;
    }
    return parts.join(QStringLiteral("; "));
}
