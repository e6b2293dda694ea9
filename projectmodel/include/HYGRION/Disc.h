#pragma once

#include <HYGRION/Assignments.h>
#include <HYGRION/Discretization.h>

#include <KOR/Parameter.h>
#include <KOR/UnitVector.h>

#include <span>
#include <vector>

class TiXmlElement;

namespace HYGRION {

/// The grid of a construction: widths of its columns (x), rows (y) and stack planes (z), and the generators that divide
/// a layer into cells. Lengths of the static generators are all in one unit, that of the width.
class Disc {
public:
    enum class geometry_t { Geometry2D, RSym, Geometry3D };
    /// Direction bits.
    enum dir_t : unsigned int { X = 1, Y = 2, Z = 4 };
    /// Where a layer is refined.
    enum mode_t : unsigned int { MODE_NONE, MODE_START, MODE_END, MODE_BOTH };

    /// No layer is divided into more cells; protects against a step that is a slip of the pen.
    static constexpr std::size_t MAX_CELLS_OF_LAYER = 1u << 20;

    /// How autoDisc divides one column, row or stack plane.
    struct LayerSettings {
        unsigned int mode = MODE_BOTH;
        double minStep = 0.001;  ///< [m]
        double maxStep = 0.05;   ///< [m], 0 for no limit
        double stretch = 1.3;    ///< [-], growth from cell to cell, or density of the tangent grid
        bool isGeometric = true; ///< geometric growth, else hyperbolic tangent
        bool operator==(const LayerSettings &) const = default;
    };

    KOR::UnitVector m_xSteps; ///< widths of the columns, from the left
    KOR::UnitVector m_ySteps; ///< heights of the rows, from the bottom
    KOR::UnitVector m_zSteps; ///< depths of the stack planes, from the back
    KOR::Parameter m_thetaZ;  ///< "ThetaZ"; kept for the solver

    /// One cell of 1 m in each direction.
    Disc();

    std::size_t nx() const { return m_xSteps.size(); }
    std::size_t ny() const { return m_ySteps.size(); }
    std::size_t nz() const { return m_zSteps.size(); }
    /// Throws "Invalid argument for dir." ("[Disc::steps]").
    const KOR::UnitVector & steps(unsigned int dir) const;

    /// Reads "Discretization"; throws with "[Disc::readXML]" and the line.
    void readXML(const TiXmlElement & element);
    /// Appends a comment and the element. A y- or z-list of one cell of 1 m is left out.
    void writeXML(TiXmlElement & parent) const;
    /// Throws "Disc has invalid parameters." ("[Disc::checkParameters]") chained above the first fault.
    void checkParameters() const;

    /// The cells of a layer of width \p width. The two tangent grids leave their closing cell (the last, in mode
    /// MODE_END the first) without width; autoDisc widens it so that the cells fill the layer.
    /// Throws "Minimum step size is too large, ..." and, for a step or stretch that leads nowhere,
    /// "[Disc::discretizeWidth]".
    static void discretizeWidth(double width, unsigned int mode, double minStep, double maxStep, double stretch,
                                bool geometric, std::vector<double> & steps);
    /// Symmetric cells, finest at both ends, that sum up to \p width exactly. Throws with "[Disc::doubleSidedDisc]".
    static void doubleSidedDisc(double width, double minStep, double stretch, std::vector<double> & steps);
    /// Cells that are finest at the start. Throws with "[Disc::doubleSidedDisc]", too.
    static void singleSidedDisc(double width, double minStep, double stretch, std::vector<double> & steps);
    /// Divides the run from the first to the last cell above \p maxStep into equal cells. No limit if it is 0.
    static void applyMaxStepSize(std::vector<double> & steps, double maxStep);

    /// Replaces \p count widths from \p first on by \p newWidths (in the list's unit) and moves the assignments with
    /// their cells. \return assignments whose cells are all gone, taken out of \p assignments.
    /// Throws ("[Disc::modifySteps]") "Invalid argument for dir.", a run outside the grid, widths that are not positive,
    /// no cell left.
    std::vector<Assignment> modifySteps(unsigned int dir, std::size_t first, std::size_t count,
                                        const std::vector<double> & newWidths, Assignments & assignments);

    /// Divides all columns, rows and stack planes, one entry for each; an empty list leaves its direction as it is.
    /// Assignments follow their cells; the boundary-ID grid is built anew. On failure nothing has changed.
    /// Throws with "[Disc::autoDisc]".
    void autoDisc(std::span<const LayerSettings> columns, std::span<const LayerSettings> rows,
                  std::span<const LayerSettings> planes, Assignments & assignments, BoundaryIDGrid & boundaryIDs);

    bool operator==(const Disc &) const = default;

private:
    KOR::UnitVector & steps(unsigned int dir) {
        return const_cast<KOR::UnitVector &>(static_cast<const Disc &>(*this).steps(dir));
    }
};

} // namespace HYGRION
