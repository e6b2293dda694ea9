#pragma once

#include <DATAIO/Geometry.h>

#include <SCI/Axis.h>

#include <KOR/Unit.h>

#include <QCoreApplication>
#include <QString>

#include <array>
#include <functional>
#include <limits>
#include <list>
#include <memory>
#include <vector>

/// A result file with the geometry that it belongs to. Records are read when they are asked for; few are kept.
class HygResultFile {
    Q_DECLARE_TR_FUNCTIONS(HygResultFile)
public:
    using Format = DATAIO::DataIO::dataFormat_t;

    /// Opens the file and looks for its geometry. Throws KOR::Exception.
    explicit HygResultFile(const QString & path);

    /// Opens a file and reads its header; refuses those of a later version. Throws KOR::Exception.
    static void open(DATAIO::DataIO & data, const QString & path);

    const QString & path() const { return m_path; }
    /// Of the file, without its extension.
    QString name() const;
    const DATAIO::DataHeader & header() const { return m_data.header(); }
    KOR::Unit valueUnit() const { return m_valueUnit; }
    /// SERIES when the geometry is missing.
    Format format() const { return m_format; }
    bool isField() const { return m_format >= Format::PLANE_XY; }
    /// nullptr when there is none.
    const DATAIO::GeoFile * geometry() const { return m_geometry.get(); }
    /// Why the places of the values are unknown or doubtful; empty if all is well.
    const QString & geometryProblem() const { return m_geometryProblem; }

    std::size_t timeCount() const { return m_data.timeCount(); }
    std::size_t valueCount() const { return m_data.header().valueCount(); }
    quint64 recordSize() const { return sizeof(double) * (1 + valueCount()); }
    /// Looks for what was written since; true if there is more.
    bool update() { return m_data.update(); }
    /// Time of a record [s since the start of the start year]. Throws KOR::Exception.
    double time(std::size_t timeIndex);
    /// The record whose time is nearest [s].
    std::size_t indexAt(double time);
    /// The values of a record, in valueUnit(). Throws KOR::Exception.
    const std::vector<double> & values(std::size_t timeIndex);
    DATAIO::DataIO & data() { return m_data; }

    /// Place of a value: the centre of its cell or side [m]; zeros without geometry.
    std::array<double, 3> place(std::size_t valueIndex) const;
    /// Cell of a value in the grid.
    std::array<std::uint32_t, 3> cell(std::size_t valueIndex) const;
    /// Of a side: GeoFile::location_t; 0 for cells.
    std::uint32_t location(std::size_t valueIndex) const;
    /// "x = 12 mm, Clay brick"
    QString placeText(std::size_t valueIndex) const;

    /// A value over time, reduced to what a chart can show.
    struct Series {
        std::vector<double> times; ///< [s]
        std::vector<double> values;
        bool isReduced = false; ///< not all records; of each piece of time the lowest and the highest
        QString problem;        ///< why it is not complete
    };
    /// Points beyond which a series is reduced.
    static constexpr std::size_t MAX_POINTS = 40000;
    /// Reads a series; for any thread, opens the file anew.
    /// \param sample a quick look only: few records, evenly taken
    /// \param isStopped asked now and then
    /// \param humidity of the same places: the dew points are meant, in C
    static Series readSeries(const QString & path, std::size_t valueIndex, bool sample,
                             const std::function<bool()> & isStopped = {}, const QString & humidity = {});

    /// Of a range of values nothing is known yet.
    static constexpr SCI::Range NOTHING_SEEN{std::numeric_limits<double>::infinity(),
                                             -std::numeric_limits<double>::infinity()};
    /// Lowest and highest value of all records in a unit; of temperatures with a file of humidities that of the dew
    /// points. Reads in parts; for any thread. What cannot be read is left out.
    static SCI::Range readRange(const QString & path, const QString & humidity, KOR::Unit unit,
                                const std::function<bool()> & isStopped = {});

private:
    void findGeometry();
    const std::vector<double> & record(std::size_t timeIndex);

    QString m_path;
    DATAIO::DataIO m_data;
    KOR::Unit m_valueUnit;
    std::shared_ptr<const DATAIO::GeoFile> m_geometry;
    QString m_geometryProblem;
    Format m_format = Format::SERIES;
    double m_secondsPerUnit = 1;
    struct Kept {
        std::size_t timeIndex;
        std::vector<double> values;
    };
    std::list<Kept> m_kept; ///< newest first
};
