#pragma once

#include "UnitScale.h"

#include <SCI/GridModel.h>
#include <SCI/PointModel.h>
#include <SCI/VectorModel.h>

#include <QString>

namespace SCI {

/// What a series gives to a table: one of the models and how its values are shown.
struct Table {
    QString title;
    QString column; ///< in place of title and quantity
    const PointModel * points = nullptr;
    const GridModel * grid = nullptr;
    const VectorModel * vectors = nullptr;
    UnitScale xUnit, yUnit, valueUnit;
    QString unit;                          ///< of the values, in brackets
    QString xHeader, yHeader, valueHeader; ///< with units
};

} // namespace SCI
