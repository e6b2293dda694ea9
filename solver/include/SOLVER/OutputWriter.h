#pragma once

#include <SOLVER/OutputQuantities.h>

#include <DATAIO/DataWriter.h>
#include <HYGRION/Project.h>

#include <iosfwd>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace SOLVER {

/// The result files of a run: what the project's output files ask for, on the output times of their grids.
///
/// Means and integrals over time are those of the integrator's own solution: accumulate() is called with the nodes of a
/// quadrature between output times. A mean, minimum or maximum belongs to the time since the last output, an integral
/// to the time since the first.
class OutputWriter {
public:
    static constexpr double NEVER = std::numeric_limits<double>::infinity();

    /// Resolves quantities, assignments and units; opens no file.
    /// \param directory for results, without a slash at its end; empty: nothing is written
    /// Throws "Error in output '%1'." above the cause ("[OutputWriter::OutputWriter]").
    OutputWriter(const HYGRION::Project & project, const Construction & construction, Model & model,
                 std::string directory);

    /// What an output's definition and one of its places tell without a grid: throw as the constructor does.
    static void checkDefinition(const HYGRION::OutputFile & definition);
    static void checkPlace(const HYGRION::OutputFile & definition, const HYGRION::Assignment & assignment);
    /// \param endTime of the simulation [s]
    static void checkGrid(const HYGRION::OutputGrid & definition, double endTime);
    struct Units {
        KOR::Unit base;    ///< of the values as they are calculated; "---" for an integral that has no name
        KOR::Unit written; ///< which the definition asks for, else the quantity's own
    };
    /// Throws as the constructor does when the definition's unit does not fit.
    static Units unitsOf(const HYGRION::OutputFile & definition, const OutputQuantity & quantity);

    /// Creates the geometry file and all result files, or goes on behind the last record not after \p resumeAt [s].
    void open(std::optional<double> resumeAt);

    /// The next moment at which something is to be written [s], NEVER if there is none.
    double nextTime() const;
    bool needsQuadrature() const { return m_needsQuadrature; }
    bool needsExtremes() const { return m_needsExtremes; }

    /// Adds the values of a node of the quadrature. \param weight [s]
    void accumulate(const Snapshot & snapshot, double weight);
    /// Lets minima and maxima see the values.
    void observe(const Snapshot & snapshot);
    /// Writes what is due at \p time, which must be nextTime().
    void write(double time, const Snapshot & snapshot);
    /// Hands all records to the system.
    void flush();

    /// What has been accumulated, for a restart file. load() throws when it belongs to other outputs.
    void save(std::ostream & out) const;
    void load(std::istream & in);

    /// A snapshot with the references that the project gives for its outputs.
    Snapshot snapshot(double time, std::span<const double> state) const;
    /// Paths of the result files, in the order of the project; empty without a directory.
    std::vector<std::string> paths() const;
    /// Moisture or heat outputs that stay as they are because nothing balances them, and outputs that no assignment uses.
    const std::vector<std::string> & warnings() const { return m_warnings; }

private:
    /// A place whose value is taken.
    struct Target {
        enum kind_t { CELL, FACE, SURFACE, CLOSED } kind = CELL; ///< CLOSED: a side through which nothing goes
        std::size_t index = 0;                                   ///< CLOSED: of the cell
        double weight = 1;                                       ///< volume or area; 1 for amounts
        double sign = 1;
        std::size_t block = 0;      ///< assignment, for STATE
        bool isSeenFromB = false;   ///< FACE: the assigned cell is the face's b
        std::int64_t coupling = -1; ///< SURFACE: the face that leads to another interface; \p sign is that of its flux
    };
    struct Grid {
        struct Span {
            double start, end, step;
        };
        std::vector<Span> spans;
        std::size_t span = 0;
        double count = 0;    ///< steps done in the span
        double next = NEVER; ///< [s]
        double last = NEVER; ///< of the last output [s]
        void advance();
    };
    struct File {
        const HYGRION::OutputFile * definition = nullptr;
        const OutputQuantity * quantity = nullptr;
        std::size_t grid = 0;
        std::vector<Target> targets;
        DATAIO::DataHeader header;
        KOR::Unit baseUnit, unit;
        std::string path;
        std::vector<double> accumulated; ///< sum of weights and values, or the extreme
        bool isFresh = true;             ///< nothing was observed since the last output
        std::unique_ptr<DATAIO::DataWriter> writer;
    };

    void resolve(File & file);
    void addElements(File & file, const HYGRION::Assignment & assignment, std::size_t block);
    void addSides(File & file, const HYGRION::Assignment & assignment);
    void addPoint(File & file, const HYGRION::Assignment & assignment);
    void addCell(File & file, std::size_t gridCell, std::size_t block);
    void evaluate(const File & file, const Snapshot & snapshot);
    static double surfaceValue(const OutputQuantity & quantity, const Target & target, const Snapshot & snapshot);
    void makeGrids(double startTime, double endTime);
    void indexSides();
    std::string resultPath(const HYGRION::OutputFile & file) const;

    HYGRION::Outputs m_outputs;
    std::vector<HYGRION::Assignment> m_assignments;
    std::string m_projectFile;
    const Construction & m_construction;
    Model & m_model;
    std::string m_directory;
    std::string m_geometryContent;
    std::vector<Grid> m_grids;
    std::vector<File> m_files;
    std::vector<std::string> m_warnings;
    bool m_needsQuadrature = false;
    bool m_needsExtremes = false;
    double m_maxHygroscopicHumidity, m_expansionTemperature, m_expansionHumidity;
    std::vector<double> m_values; ///< of evaluate()
    /// By key of cell and location: sides of the geometry, surfaces; by pair of cells: faces.
    std::unordered_map<std::uint64_t, std::uint32_t> m_sides, m_surfaces, m_faces;
    std::vector<std::vector<std::uint32_t>> m_loadsOfCell; ///< as in Snapshot
};

} // namespace SOLVER
