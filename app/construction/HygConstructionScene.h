#pragma once

#include "construction/HygCellPlane.h"
#include "construction/HygGridAxis.h"
#include "construction/HygGridSelection.h"

#include <KOR/Unit.h>

#include <QColor>
#include <QCoreApplication>
#include <QLineF>
#include <QRectF>
#include <QString>

#include <array>
#include <vector>

/// What the construction view shows of the project and how. The drawing, the rulers and the view share one.
struct HygConstructionScene {
    Q_DECLARE_TR_FUNCTIONS(HygConstructionScene)
public:
    enum overlay_t {
        MaterialNames,
        Interfaces,
        ContactConditions,
        FieldConditions,
        InitialConditions,
        Outputs,
        NUM_OVERLAYS
    };

    /// A place that wants the user's attention.
    struct Mark {
        HYGRION::Range range;
        HYGRION::Assignment::location_t side = HYGRION::Assignment::location_t::Element;
        std::size_t hint = 0; ///< of the list below the drawing
        QString text = {};    ///< what is wrong there
    };
    /// A sign at a mark that can be clicked.
    struct Badge {
        QPointF middle;
        const Mark * mark = nullptr;
    };
    static constexpr double BADGE_RADIUS = 9; ///< pixels

    const HYGRION::Project * project = nullptr; ///< nullptr while none is open
    HygCellPlane cells;
    HygGridAxis x{false};
    HygGridAxis y{true};
    HygGridAxis z{false}; ///< of the stack planes, which are not drawn side by side
    HygGridSelection selection;
    std::vector<HYGRION::Range> highlighted; ///< what a table or list points to
    std::vector<Mark> marks;
    std::vector<QString> materialProblems; ///< why a material's file cannot be used, by its index; empty: it can
    std::array<bool, NUM_OVERLAYS> overlays{true, true, true, false, false, false};
    bool hasGridLines = true;
    bool isEquidistant = false;
    std::uint32_t plane = 0;
    KOR::Unit unit = KOR::Unit("mm"); ///< of all lengths shown
    QColor selectionColour{0x2f, 0x80, 0xed};
    QColor highlightColour{0xf2, 0x99, 0x4a};
    std::uint64_t version = 0; ///< counts the changes of cells, materials and axes

    /// Reads the cells and widths anew.
    void update();

    /// A construction of one row, drawn as a stack of layers over the whole height.
    bool isStack() const { return project != nullptr && project->m_disc.ny() <= 1 && project->m_disc.nz() <= 1; }
    /// A project as new: one cell, to which nothing is assigned.
    bool isBlank() const;
    bool isRotational() const;

    /// The pixels that a block of cells covers.
    QRectF rectangle(const HYGRION::Range & range) const;
    /// The line of a side of a block on the screen.
    QLineF sideLine(const HYGRION::Range & range, HYGRION::Assignment::location_t side) const;
    /// Where an assignment to a point is drawn.
    QPointF pointOf(const HYGRION::Assignment & assignment) const;
    /// Whether an assignment shows in this plane, with the cells that it really concerns; of a point the cell around it.
    bool showsIn(const HYGRION::Assignment & assignment, HYGRION::Range & cellsOfIt) const;

    /// The signs in view, each with room of its own.
    std::vector<Badge> badges(const QRectF & viewport) const;

    /// The colour in which a definition is drawn; of materials their own.
    QColor colourOf(HYGRION::Assignment::type_t type, const std::string & name) const;
    static QColor definitionColour(HYGRION::Assignment::type_t type, std::size_t index);
    /// The overlay that shows assignments of a type.
    static overlay_t overlayOf(HYGRION::Assignment::type_t type);

    /// Why the file of a material cannot be used; empty if it can, and for indices of none.
    QString problemOf(std::int32_t material) const;
    QString problemOf(const HYGRION::Assignment & assignment) const;

    /// "115 mm", rounded as a length is measured.
    QString lengthText(double metres) const;
    /// The same without the unit.
    QString lengthNumber(double metres) const;
    /// All that applies to a cell, as rich text.
    QString cardOf(std::uint32_t i, std::uint32_t j) const;

    /// Words of the user for the types and places of assignments.
    static QString typeName(HYGRION::Assignment::type_t type);
    static QString locationName(HYGRION::Assignment::location_t location);
};
