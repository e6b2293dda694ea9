#pragma once

#include "ClimateDriver.h"
#include "MaterialFunctionsBuilder.h"

#include <SOLVER/Construction.h>

#include <HYGRION/Project.h>

#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

namespace SOLVER {

/// Makes a project ready to calculate, step by step; see buildConstruction.
class ModelBuilder {
public:
    explicit ModelBuilder(const HYGRION::Project & project) : m_project(project) {}

    Construction build();

    // What definitions tell by themselves; all throw with the reason.
    static void checkAssignment(const HYGRION::Assignment & assignment, const std::string & label);
    static module_t moduleOf(const HYGRION::Init & init);
    static void checkInterval(const HYGRION::Init & init);
    /// Settings that change nothing.
    static void warnOfSettings(const HYGRION::Init & init);
    static void checkGrid(const HYGRION::Disc & disc);
    /// Conditions of an interface that do not couple it to another one.
    static void checkCondition(const HYGRION::BoundaryCond & condition);
    /// How an interface stands, to which sun and driving rain come or not.
    static SurfacePosition positionOf(const HYGRION::Interface & interface, bool needsOrientation);
    static void checkContact(const HYGRION::ContactCond & condition);
    static bool isCoupling(const HYGRION::BoundaryCond & condition) {
        return !condition.m_otherInterfaceReference.empty();
    }

private:
    using Index = std::array<std::uint32_t, 3>; ///< column, row, plane
    static constexpr std::int64_t NO_CELL = -1;

    /// A face of the grid: the one before the cell at \p index in a direction; the index may be one beyond the last cell.
    struct GridFace {
        std::size_t direction;
        Index index;
    };
    /// What the element assignments of a cell say.
    struct CellAssignments {
        std::int64_t material = -1; ///< index into input.materials
        std::array<std::uint8_t, 3> direction{0, 0, 0};
        double temperature = 0, suction = 0;
    };
    /// What stands for an interface on the surfaces that it covers.
    struct InterfaceLaws {
        std::vector<BoundaryLaw> laws;
        std::vector<std::string> coupled; ///< boundary conditions that couple it to another interface
        bool isHydrostatic = false;
        std::map<std::int64_t, std::uint32_t> groups; ///< of the driver, by height [um]; 0 if that does not count
    };

    // ModelBuilder.cpp
    void readSettings();
    void readIntegratorSettings();
    void finishClimate();

    // ModelBuilderGrid.cpp
    void readGrid();
    void makeCells();
    void checkEmptyCells() const;
    void makeFaces();
    void makeGeometry();
    CellAssignments resolve(const std::vector<std::uint32_t> & assignments);
    std::int64_t materialIndex(const std::string & name);
    void readInitialState(const std::vector<std::uint32_t> & assignments, CellAssignments & cell);
    /// The condition that has the value, through references.
    const HYGRION::InitialCond & initialCondition(const std::string & name) const;
    double volume(const Index & index) const;
    double area(const GridFace & face) const;
    double height(const GridFace & face) const;
    std::size_t gridIndex(const Index & index) const {
        return (index[2] * m_size[1] + index[1]) * m_size[0] + index[0];
    }
    Index indexOf(std::size_t gridIndex) const {
        const std::size_t row = gridIndex / m_size[0];
        return {static_cast<std::uint32_t>(gridIndex % m_size[0]), static_cast<std::uint32_t>(row % m_size[1]),
                static_cast<std::uint32_t>(row / m_size[1])};
    }
    std::uint64_t faceKey(const GridFace & face) const;
    std::int64_t cellAt(const Index & index) const { return m_result.cellOfGrid[gridIndex(index)]; }
    /// The cells on both sides of a face, NO_CELL outside of the material.
    std::pair<std::int64_t, std::int64_t> cellsAt(const GridFace & face) const;
    /// The faces on a side of an assignment's range.
    std::vector<GridFace> facesOf(const HYGRION::Assignment & assignment) const;
    /// Height per length along x, y and z.
    std::array<double, 3> upDirection() const;

    // ModelBuilderSurfaces.cpp
    void makeSurfaces();
    void makeSurface(const HYGRION::Assignment & assignment, const GridFace & face, InterfaceLaws & laws);
    const HYGRION::Interface & interfaceOf(const std::string & name) const;
    InterfaceLaws & lawsOf(const HYGRION::Interface & interface);
    BoundaryLaw lawOf(const HYGRION::Interface & interface, const HYGRION::BoundaryCond & condition,
                      const HYGRION::Interface::Generated * generated);
    double pipeShare(const HYGRION::Interface & interface, const HYGRION::BoundaryCond & condition) const;
    ActiveTimes activeTimes(const std::string & schedule) const;
    const CCM::SolarRadiationModel & place();
    void coupleInterfaces();
    /// How an interface leads to another one.
    struct Coupling {
        std::string other;
        std::optional<double> heat, vapor; ///< resistances [m2K/W], [m/s]; none where nothing passes
        int foil = -1;
        /// The resistances of both sides are in series.
        void add(const Coupling & side) {
            const auto addTo = [](std::optional<double> & sum, const std::optional<double> & more) {
                if (more)
                    sum = sum.value_or(0) + *more;
            };
            addTo(heat, side.heat);
            addTo(vapor, side.vapor);
            foil = foil < 0 ? side.foil : foil;
        }
    };
    Coupling couplingOf(const InterfaceLaws & laws);
    void couple(const HYGRION::Interface & interface, const Coupling & coupling);

    // ModelBuilderContacts.cpp
    void readContacts();
    ContactResistance contactOf(const HYGRION::ContactCond & condition);
    const HYGRION::ContactCond & contactCondition(const std::string & name) const;

    // ModelBuilderFields.cpp
    void makeFieldConditions();
    void makeFieldLoads(const HYGRION::FieldCond & condition, const HYGRION::Range & range);
    void makeCavityRadiation(const HYGRION::FieldCond & condition, const HYGRION::Range & range);
    const HYGRION::FieldCond & fieldCondition(const std::string & name) const;
    FieldLaw fieldLawOf(const HYGRION::FieldCond & condition);
    /// Of a block of cells, the shortest of its extents in the directions of the grid [m].
    double layerThickness(const HYGRION::Range & range) const;
    /// Water that flows through a block of cells along a direction.
    struct WaterFlow {
        std::size_t direction = 0;
        bool isUpwards = true;   ///< towards growing indices
        std::uint32_t first = 0; ///< index of the cells where it enters, along the direction
        std::uint32_t inlet = 0; ///< and of their faces
        double area = 0;         ///< where it enters [m2]
    };
    WaterFlow waterFlow(const HYGRION::FieldCond & condition, const HYGRION::Range & range) const;

    const HYGRION::Project & m_project;
    Construction m_result;
    MaterialOptions m_materialOptions;
    std::optional<double> m_isothermalTemperature; ///< [K]
    std::unique_ptr<ClimateDriver> m_driver;
    std::optional<CCM::SolarRadiationModel> m_place;

    std::array<std::uint32_t, 3> m_size{1, 1, 1};
    std::array<std::vector<double>, 3> m_widths, m_borders; ///< [m]
    double m_angle = 0;                                     ///< of a body of revolution [Rad], 0 for others
    HYGRION::AssignmentGrid m_grid;
    std::map<std::string, std::int64_t> m_materialIndices;           ///< by name in the project
    std::unordered_map<std::uint64_t, ContactResistance> m_contacts; ///< by face
    std::unordered_map<std::uint64_t, std::uint32_t> m_surfaceOfFace;
    std::map<std::string, InterfaceLaws> m_interfaceLaws;
};

/// A place of the grid in words, counted from 1.
inline std::string placeText(const std::array<std::uint32_t, 3> & index) {
    return KOR::text("column %1, row %2, plane %3", index[0] + 1, index[1] + 1, index[2] + 1);
}

/// The definition of this name. Throws "%1 '%2' is not defined." with its kind.
template <typename Definition>
const Definition & named(const std::vector<Definition> & list, const std::string & name, const char * kind) {
    for (const Definition & definition : list)
        if (definition.m_name == name)
            return definition;
    throw KOR::Exception(KOR::text("%1 '%2' is not defined.", kind, name), "[SOLVER::buildConstruction]");
}

/// Calls body() and puts what it was about above its failures.
template <typename Body> decltype(auto) inContext(const std::string & message, Body && body) {
    try {
        return body();
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, message, "[SOLVER::buildConstruction]");
    }
}

/// Throws with the function identifier of buildConstruction.
[[noreturn]] inline void refuse(const std::string & message) {
    throw KOR::Exception(message, "[SOLVER::buildConstruction]");
}

} // namespace SOLVER
