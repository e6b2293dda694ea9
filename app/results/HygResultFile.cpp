#include "HygResultFile.h"

#include "HygFormat.h"
#include "HygResultHumidity.h"

#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace {

constexpr std::size_t MAX_KEPT = 4;       ///< records
constexpr std::size_t SAMPLES = 400;      ///< of a quick look
constexpr std::size_t BATCH = 2048;       ///< values that are picked at once, before anybody is asked whether to go on
constexpr std::size_t CHUNK = (4 << 20);  ///< [bytes] that are read at once
constexpr std::size_t WIDE_RECORD = 4096; ///< [bytes]
constexpr const char * WHERE = "[HygResultFile]";

double converted(KOR::Unit from, KOR::Unit to, double value) {
    KOR::UnitList::instance().convert(from, to, value);
    return value;
}

double secondsPer(const std::string & unit) {
    double value = 1;
    KOR::UnitList::instance().convert(KOR::Unit(unit), KOR::Unit("s"), value);
    return value;
}

} // namespace

HygResultFile::HygResultFile(const QString & path) : m_path(path) {
    open(m_data, path);
    m_valueUnit = KOR::Unit(header().valueUnit);
    m_secondsPerUnit = secondsPer(header().timeUnit);
    findGeometry();
    if (m_geometry) {
        try {
            m_format = m_data.determineDataFormat(m_geometry.get());
        } catch (const KOR::Exception & ex) {
            m_geometryProblem = tr("The results do not fit to their geometry; places are unknown.") + '\n' +
                                QString::fromStdString(ex.cause());
            m_geometry.reset();
        }
    }
}

void HygResultFile::open(DATAIO::DataIO & data, const QString & path) {
    data.openAndReadHeader(path.toStdString());
    if (data.version().major > KOR::FILE_VERSION.major)
        throw KOR::Exception(KOR::text("The file has version %1.%2, newer than %3.%4 of this program.",
                                       int(data.version().major), int(data.version().minor),
                                       int(KOR::FILE_VERSION.major), int(KOR::FILE_VERSION.minor)),
                             WHERE);
}

void HygResultFile::findGeometry() {
    const DATAIO::Geometry found = DATAIO::geometryOf(m_data);
    m_geometry = found.grid;
    const QString name = QString::fromStdString(header().geoFile);
    switch (found.state) {
    case DATAIO::Geometry::WITHIN:
    case DATAIO::Geometry::BESIDE:
        break;
    case DATAIO::Geometry::CHANGED:
        m_geometryProblem = tr("The geometry file '%1' is not the one that these results were calculated with (hash %2 "
                               "instead of %3); places may be wrong.")
                                .arg(name)
                                .arg(m_geometry->hash())
                                .arg(header().geoFileHash);
        break;
    case DATAIO::Geometry::UNNAMED:
        m_geometryProblem = tr("The file names no geometry file.");
        break;
    case DATAIO::Geometry::MISSING:
        m_geometryProblem = tr("The geometry file '%1' is missing; places are unknown.").arg(name);
        break;
    case DATAIO::Geometry::UNREADABLE:
        m_geometryProblem = tr("The geometry file '%1' cannot be read; places are unknown.").arg(name) + '\n' +
                            QString::fromStdString(found.problem);
        break;
    }
}

QString HygResultFile::name() const {
    return QFileInfo(m_path).completeBaseName();
}

const std::vector<double> & HygResultFile::record(std::size_t timeIndex) {
    for (auto kept = m_kept.begin(); kept != m_kept.end(); ++kept)
        if (kept->timeIndex == timeIndex) {
            m_kept.splice(m_kept.begin(), m_kept, kept);
            return m_kept.front().values;
        }
    std::vector<double> values = m_data.records(timeIndex, 1);
    if (values.empty())
        throw KOR::Exception(KOR::text("The file has no time point %1.", timeIndex), WHERE);
    values.erase(values.begin());
    if (m_kept.size() == MAX_KEPT)
        m_kept.pop_back();
    m_kept.push_front({timeIndex, std::move(values)});
    return m_kept.front().values;
}

double HygResultFile::time(std::size_t timeIndex) {
    return m_data.timePoint(timeIndex) * m_secondsPerUnit;
}

const std::vector<double> & HygResultFile::values(std::size_t timeIndex) {
    return record(timeIndex);
}

std::size_t HygResultFile::indexAt(double wanted) {
    std::size_t low = 0, high = timeCount();
    while (low < high) { // the first that is not before
        const std::size_t middle = low + (high - low) / 2;
        if (time(middle) < wanted)
            low = middle + 1;
        else
            high = middle;
    }
    if (low == timeCount())
        return timeCount() == 0 ? 0 : timeCount() - 1;
    return low > 0 && wanted - time(low - 1) < time(low) - wanted ? low - 1 : low;
}

std::array<double, 3> HygResultFile::place(std::size_t valueIndex) const {
    if (!m_geometry || valueIndex >= header().indices.size())
        return {};
    const std::uint32_t index = header().indices[valueIndex];
    if (header().type == DATAIO::DataHeader::FLUX) {
        const auto & side = m_geometry->m_sides.at(index);
        return {side.x, side.y, side.z};
    }
    const auto & element = m_geometry->m_elements.at(index);
    return {element.x, element.y, element.z};
}

std::array<std::uint32_t, 3> HygResultFile::cell(std::size_t valueIndex) const {
    if (!m_geometry || valueIndex >= header().indices.size())
        return {};
    const std::uint32_t index = header().indices[valueIndex];
    if (header().type == DATAIO::DataHeader::FLUX) {
        const auto & side = m_geometry->m_sides.at(index);
        return {side.i, side.j, side.k};
    }
    const auto & element = m_geometry->m_elements.at(index);
    return {element.i, element.j, element.k};
}

std::uint32_t HygResultFile::location(std::size_t valueIndex) const {
    if (!m_geometry || header().type != DATAIO::DataHeader::FLUX || valueIndex >= header().indices.size())
        return 0;
    return m_geometry->m_sides.at(header().indices[valueIndex]).location;
}

QString HygResultFile::placeText(std::size_t valueIndex) const {
    constexpr double MM = 1000;
    if (!m_geometry)
        return tr("place %1").arg(valueIndex + 1);
    const auto p = place(valueIndex);
    QStringList parts;
    const char * names[] = {"x", "y", "z"};
    for (int d = 0; d < 3; ++d)
        if (m_geometry->widths(d).size() > 1)
            parts << QStringLiteral("%1 = %2 mm")
                         .arg(QLatin1String(names[d]))
                         .arg(HygFormat::number(MM * p[static_cast<std::size_t>(d)]));
    if (header().type != DATAIO::DataHeader::FLUX)
        if (const auto * material =
                m_geometry->material(m_geometry->m_elements.at(header().indices[valueIndex]).materialId))
            parts << QString::fromStdString(material->name);
    return parts.join(QStringLiteral(", "));
}

HygResultFile::Series HygResultFile::readSeries(const QString & path, std::size_t valueIndex, bool sample,
                                                const std::function<bool()> & isStopped, const QString & humidity) {
    Series series;
    try {
        DATAIO::DataIO data, second;
        data.openAndReadHeader(path.toStdString());
        const bool isDewPoint = !humidity.isEmpty();
        if (isDewPoint)
            second.openAndReadHeader(humidity.toStdString());
        const std::size_t count = isDewPoint ? std::min(data.timeCount(), second.timeCount()) : data.timeCount();
        const std::size_t width = 1 + data.header().valueCount();
        const KOR::Unit own(data.header().valueUnit), celsius("C"), part("%");
        const KOR::Unit phiUnit(isDewPoint ? second.header().valueUnit : "%");
        const auto dewPoint = [&](double value, double phi) {
            return HygResultHumidity::dewPoint(converted(own, celsius, value), converted(phiUnit, part, phi));
        };
        const double seconds = secondsPer(data.header().timeUnit);
        if (valueIndex + 1 >= width)
            throw KOR::Exception(KOR::text("There is no value %1.", valueIndex), WHERE);
        series.isReduced = count > MAX_POINTS;
        const auto pick = [&](const std::vector<std::size_t> & timeIndices) {
            DATAIO::DataIO::Course course = data.course(valueIndex, timeIndices);
            if (isDewPoint) {
                const std::vector<double> phi = second.course(valueIndex, timeIndices).values;
                std::transform(course.values.begin(), course.values.end(), phi.begin(), course.values.begin(),
                               dewPoint);
            }
            for (const double time : course.times)
                series.times.push_back(time * seconds);
            series.values.insert(series.values.end(), course.values.begin(), course.values.end());
        };
        std::vector<std::size_t> timeIndices;
        if (sample && count > SAMPLES) {
            for (std::size_t s = 0; s < SAMPLES; ++s)
                timeIndices.push_back(s * (count - 1) / (SAMPLES - 1));
            pick(timeIndices);
            series.isReduced = true;
            return series;
        }
        if (width * sizeof(double) > WIDE_RECORD) { // value by value: few, and far from each other
            for (std::size_t first = 0; first < count && !(isStopped && isStopped()); first += BATCH) {
                timeIndices.resize(std::min(BATCH, count - first));
                std::iota(timeIndices.begin(), timeIndices.end(), first);
                pick(timeIndices);
            }
            series.isReduced = false;
            return series;
        }
        // Of as many records as fall into one piece the lowest and the highest, in their order.
        const std::size_t piece = series.isReduced ? (2 * count + MAX_POINTS - 1) / MAX_POINTS : 1;
        const std::size_t perChunk = std::max<std::size_t>(1, CHUNK / (width * sizeof(double)) / piece) * piece;
        for (std::size_t first = 0; first < count; first += perChunk) {
            if (isStopped && isStopped())
                break;
            const std::vector<double> chunk = data.records(first, std::min(perChunk, count - first));
            const std::vector<double> phi =
                isDewPoint ? second.records(first, std::min(perChunk, count - first)) : std::vector<double>();
            const std::size_t records = chunk.size() / width;
            std::vector<double> values(records);
            for (std::size_t r = 0; r < records; ++r) {
                const std::size_t at = r * width + 1 + valueIndex;
                values[r] = isDewPoint ? dewPoint(chunk[at], phi.at(at)) : chunk[at];
            }
            for (std::size_t p = 0; p < records; p += piece) {
                std::size_t low = p, high = p, gap = p;
                for (std::size_t r = p; r < std::min(records, p + piece); ++r) {
                    if (std::isnan(values[r])) {
                        gap = r;
                        continue;
                    }
                    if (!(values[r] >= values[low])) // also when the lowest so far is no number
                        low = r;
                    if (!(values[r] <= values[high]))
                        high = r;
                }
                for (const std::size_t r : std::set<std::size_t>{low, high, std::isnan(values[gap]) ? gap : low}) {
                    series.times.push_back(chunk[r * width] * seconds);
                    series.values.push_back(values[r]);
                }
            }
        }
    } catch (const std::exception & ex) {
        series.problem = QString::fromUtf8(ex.what());
    }
    return series;
}

SCI::Range HygResultFile::readRange(const QString & path, const QString & humidity, KOR::Unit unit,
                                    const std::function<bool()> & isStopped) {
    SCI::Range range = NOTHING_SEEN;
    try {
        DATAIO::DataIO data, second;
        data.openAndReadHeader(path.toStdString());
        if (!humidity.isEmpty())
            second.openAndReadHeader(humidity.toStdString());
        const KOR::Unit own(data.header().valueUnit), celsius("C"), part("%");
        const KOR::Unit phiUnit(humidity.isEmpty() ? "%" : second.header().valueUnit);
        const std::size_t width = 1 + data.header().valueCount();
        const std::size_t perChunk = std::max<std::size_t>(1, CHUNK / (width * sizeof(double)));
        const auto take = [&range](double value) {
            if (!std::isfinite(value))
                return;
            range.from = std::min(range.from, value);
            range.to = std::max(range.to, value);
        };
        for (std::size_t first = 0; first < data.timeCount() && !(isStopped && isStopped()); first += perChunk) {
            const std::vector<double> chunk = data.records(first, perChunk);
            const std::vector<double> phi = humidity.isEmpty() ? chunk : second.records(first, perChunk);
            for (std::size_t i = 0; i < std::min(chunk.size(), phi.size()); ++i) {
                if (i % width == 0)
                    continue; // a time
                if (humidity.isEmpty())
                    take(chunk[i]);
                else
                    take(HygResultHumidity::dewPoint(converted(own, celsius, chunk[i]),
                                                     converted(phiUnit, part, phi[i])));
            }
        }
        if (range.from <= range.to) {
            const KOR::Unit from = humidity.isEmpty() ? own : celsius;
            const double a = converted(from, unit, range.from), b = converted(from, unit, range.to);
            range = {std::min(a, b), std::max(a, b)};
        }
    } catch (const KOR::Exception &) { // told when it is drawn
    }
    return range;
}
