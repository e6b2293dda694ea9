#pragma once

#include <QColor>
#include <QPalette>

namespace SCI {

/// The colours of a chart on a light or a dark ground.
struct Theme {
    bool isDark = false;
    QColor ground; ///< of canvas and surroundings
    QColor text;
    QColor grid;
    QColor mutedText;
    QColor threshold;
    QColor hatching; ///< ground below the lines that hatch
    QColor band;     ///< see-through

    static Theme of(bool isDark);
    /// Light or dark as the palette is.
    static Theme of(const QPalette & palette);
    /// The \p i -th colour for series: told apart by colour-blind readers, contrast to the ground at least 3.
    /// After the last the first comes again.
    QColor series(int i) const;
    /// Dashes tell apart what has the same colour.
    static Qt::PenStyle pen(int i, Qt::PenStyle wanted);
    static int seriesCount();
};

} // namespace SCI
