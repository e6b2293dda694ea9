#include "Commands.h"

#include <QCoreApplication>

namespace PLOT {

namespace {
/// What the libraries call things, for the translation; other texts stay as they are.
constexpr const char * TEXTS[] = {
    QT_TRANSLATE_NOOP("Plot", "Temperature"),
    QT_TRANSLATE_NOOP("Plot", "Relative humidity"),
    QT_TRANSLATE_NOOP("Plot", "Direct normal radiation"),
    QT_TRANSLATE_NOOP("Plot", "Diffuse horizontal radiation"),
    QT_TRANSLATE_NOOP("Plot", "Wind direction"),
    QT_TRANSLATE_NOOP("Plot", "Wind velocity"),
    QT_TRANSLATE_NOOP("Plot", "Long-wave counter radiation"),
    QT_TRANSLATE_NOOP("Plot", "Air pressure"),
    QT_TRANSLATE_NOOP("Plot", "Rain"),
    QT_TRANSLATE_NOOP("Plot", "Moisture content"),
    QT_TRANSLATE_NOOP("Plot", "Capillary pressure pC"),
    QT_TRANSLATE_NOOP("Plot", "Liquid conductivity"),
    QT_TRANSLATE_NOOP("Plot", "Liquid diffusivity"),
    QT_TRANSLATE_NOOP("Plot", "Vapour permeability"),
    QT_TRANSLATE_NOOP("Plot", "Vapour resistance factor"),
    QT_TRANSLATE_NOOP("Plot", "Air permeability"),
    QT_TRANSLATE_NOOP("Plot", "Thermal conductivity"),
    QT_TRANSLATE_NOOP("Plot", "Internal energy"),
    QT_TRANSLATE_NOOP("Plot", "Vapour diffusion thickness"),
    QT_TRANSLATE_NOOP("Plot", "Time"),
    QT_TRANSLATE_NOOP("Plot", "Element %1"),
    QT_TRANSLATE_NOOP("Plot", "Side %1"),
    QT_TRANSLATE_NOOP("Plot", "%1: no such function"),
};
} // namespace

QString translated(const std::string & text) {
    static_assert(std::size(TEXTS) > 0);
    return QCoreApplication::translate("Plot", text.c_str());
}

} // namespace PLOT
