#pragma once

#include <HYGRION/Project.h>

/// Puts an example project together: parts of a construction become cells, and what is assigned to parts follows them.
class ExampleBuilder {
public:
    /// A strip of the construction along one axis.
    struct Part {
        double width; ///< [mm]
        HYGRION::Disc::mode_t mode = HYGRION::Disc::MODE_BOTH;
        double minStep = 1;   ///< [mm]
        double maxStep = 50;  ///< [mm]
        double stretch = 1.3; ///< [-]
    };
    using Location = HYGRION::Assignment::location_t;
    using Climate = HYGRION::ClimateCond::condition_t;

    ExampleBuilder(std::string name, std::string description);

    HYGRION::Project & project() { return m_project; }

    /// \param climateFile in the climate database
    void location(const char * place, const char * climateFile);
    void duration(double value, const char * unit);

    void columns(std::initializer_list<Part> parts) { m_columns = divided(parts, m_project.m_disc.m_xSteps); }
    void rows(std::initializer_list<Part> parts) { m_rows = divided(parts, m_project.m_disc.m_ySteps); }
    void planes(std::initializer_list<Part> parts) { m_planes = divided(parts, m_project.m_disc.m_zSteps); }
    /// The cells of columns \p left to \p right, rows \p bottom to \p top and planes \p back to \p front, counted in parts
    /// from 0, ends included.
    HYGRION::Range cells(std::size_t left, std::size_t right, std::size_t bottom = 0, std::size_t top = 0,
                         std::size_t back = 0, std::size_t front = 0) const;
    HYGRION::Range allCells() const;

    /// \param file in the material database, without the extension; gives name, colour and hatching
    void material(const std::string & file, const HYGRION::Range & range);
    /// Starting state of all cells, or of some.
    void initial(double temperature, double relativeHumidity);
    void initialContent(const char * name, double moistureContent, const HYGRION::Range & range);
    void assign(HYGRION::Assignment::type_t type, const std::string & name, Location side, const HYGRION::Range & range,
                const char * label = "");

    /// Surfaces with the climate of the location and of the adaptive indoor model.
    /// \param orientation of the surface [Deg], north 0, east 90
    /// \param inclination [Deg], 0 faces up, 90 is vertical
    HYGRION::Interface & outdoor(const char * name, double orientation, double inclination, double absorption,
                                 bool hasRain);
    HYGRION::Interface & indoor();

    /// A surface out of boundary conditions.
    HYGRION::Interface & detailed(const char * name, std::initializer_list<const char *> boundaryConditions);
    HYGRION::ClimateCond & constant(const char * name, Climate quantity, double value);
    /// Hours of a file beside the project, repeated every year.
    HYGRION::ClimateCond & fromFile(const char * name, Climate quantity, const char * file);
    /// A quantity of the location's climate file.
    HYGRION::ClimateCond & fromLocation(const char * name, Climate quantity);
    HYGRION::BoundaryCond & boundary(const char * name, HYGRION::BoundaryCond::condition_t law,
                                     HYGRION::BoundaryCond::kind_t kind, std::initializer_list<const char *> climate);
    /// Heat conduction [W/m2K] and, unless \p vapor is 0, vapour diffusion [s/m] as one surface with constant climate.
    HYGRION::Interface & steady(const std::string & name, double temperature, double relativeHumidity, double heat,
                                double vapor);
    /// A foil; \p functionOfHumidity are pairs of relative humidity [%] and sd-value [m], else the one sd-value holds.
    HYGRION::ContactCond & foil(const char * name, double sd,
                                const std::vector<std::pair<double, double>> & functionOfHumidity = {});

    void outputGrid(const char * name, double step, const char * unit);
    /// A result file for cells or a side.
    void output(const char * name, const char * quantity, const char * unit, HYGRION::OutputFile::space_type_t space,
                const char * grid, Location side, const HYGRION::Range & range,
                HYGRION::OutputFile::time_type_t time = HYGRION::OutputFile::time_type_t::None);
    /// What every component gets: fields once a day, content, surface state and fluxes every hour.
    /// \param inside the cells of which \p side is the inner surface
    void standardOutputs(const HYGRION::Range & inside, Location side);

    void assessment(const char * name, HYGRION::Assessment::AssessmentType type,
                    HYGRION::Assessment::AssignmentType where, std::optional<std::uint32_t> layer = {});

    /// Writes the file; the check of the project must find no fault. \return whether that went well
    bool write(const std::string & file) const;

private:
    using Edges = std::vector<std::uint32_t>; ///< number of the first cell of each part, and one behind the last
    static Edges divided(std::initializer_list<Part> parts, KOR::UnitVector & steps);

    HYGRION::Project m_project;
    Edges m_columns{0, 1};
    Edges m_rows{0, 1};
    Edges m_planes{0, 1};
};
