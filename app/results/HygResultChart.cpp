#include "HygResultChart.h"

#include "HygCoreMessages.h"
#include "HygFormat.h"
#include "HygResultHumidity.h"
#include "HygResultStatistics.h"
#include "outputs/HygOutputTexts.h"

#include <KOR/Exception.h>
#include <KOR/Time.h>
#include <KOR/UnitList.h>

#include <QBoxLayout>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QPointer>
#include <QSplitter>
#include <QThreadPool>

#include <cmath>
#include <set>

using HygResultHumidity::isHumidity;
using HygResultHumidity::isTemperature;
using HygResultModels::Arrows;
using HygResultModels::Field;
using HygResultModels::Plane;

namespace {

constexpr quint64 READ_AT_ONCE = 1 << 20; ///< [bytes] smaller files are read without another thread
constexpr quint64 LOOK_FIRST = 32 << 20;  ///< [bytes] of larger ones a quick look is shown first
constexpr QSize MIN_CHART(200, 100);
constexpr int SHARE_DIGITS = 4;

double converted(KOR::Unit from, KOR::Unit to, double value) {
    KOR::UnitList::instance().convert(from, to, value);
    return value;
}
void convertAll(KOR::Unit from, KOR::Unit to, std::vector<double> & values) {
    if (from != to)
        KOR::UnitList::instance().convert(from, to, std::span<double>(values));
}
QString unitName(KOR::Unit unit) {
    return QString::fromStdString(unit.name());
}
/// Direction along which a profile lies.
int directionOf(const HygResultFile & file) {
    return static_cast<int>(file.format()) - static_cast<int>(HygResultFile::Format::PROFILE_X);
}

} // namespace

HygResultChart::HygResultChart(QWidget * parent)
    : QWidget(parent), m_chart(new SCI::Chart(this)), m_cutChart(new SCI::Chart(this)),
      m_scale(new HygResultScale(this)), m_splitter(new QSplitter(Qt::Vertical, this)) {
    m_chart->setObjectName(QStringLiteral("resultChart"));
    m_cutChart->setObjectName(QStringLiteral("cutChart"));
    m_chart->setMinimumSize(MIN_CHART);
    m_cutChart->setMinimumSize(MIN_CHART);
    m_splitter->addWidget(m_chart);
    m_splitter->addWidget(m_cutChart);
    m_splitter->setStretchFactor(0, 2);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);
    m_cutChart->hide();
    setLocale(HygFormat::locale());
    m_chart->setEqualScales(true); // fields look as they are
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_splitter);
    for (const SCI::Chart * chart : {m_chart, m_cutChart})
        connect(chart, &SCI::Chart::refreshed, this, &HygResultChart::alignCut);
    connect(m_chart, &SCI::Chart::refreshed, this, &HygResultChart::keepScale);
    connect(m_scale, &HygResultScale::scanned, this, [this] {
        applyRanges();
        showLimits();
        emit shown();
    });
}

HygResultChart::~HygResultChart() {
    ++*m_generation;
}

void HygResultChart::setFiles(Files files) {
    if (files.size() > MAX_FILES)
        files.resize(MAX_FILES);
    m_files = std::move(files);
    m_scale->clear();
    m_humidities.clear();
    m_timeIndex = 0;
    m_isNewView = true;
    rebuild();
}

void HygResultChart::setOptions(const Options & options) {
    if (options == m_options)
        return;
    // Other axes are another view, and a limit that comes or goes needs another range.
    m_isNewView = m_isNewView || options.isOverTime != m_options.isOverTime;
    const auto unitOf = [this](const Options & o) { return o.unit.isEmpty() ? unitName(m_leftUnit) : o.unit; };
    m_hasValueRange = m_hasValueRange && options.hasMouldLimit == m_options.hasMouldLimit &&
                      (options.threshold == m_options.threshold || unitOf(options) != unitOf(m_options));
    releaseLimits();
    m_options = options;
    rebuild();
}

void HygResultChart::setMeasured(const HygMeasuredData & measured) {
    m_measured = measured;
    rebuild();
}

bool HygResultChart::isOverTime() const {
    return m_files.empty() || m_options.isOverTime || m_files[0]->format() == HygResultFile::Format::SERIES;
}

bool HygResultChart::isField() const {
    return !isOverTime() && m_files[0]->isField();
}

std::size_t HygResultChart::timeCount() const {
    return m_files.empty() ? 0 : m_files[0]->timeCount();
}

double HygResultChart::time(std::size_t index) const {
    try {
        return index < timeCount() ? m_files[0]->time(index) : 0;
    } catch (const KOR::Exception &) {
        return 0;
    }
}

KOR::Unit HygResultChart::shownUnit() const {
    if (!m_options.unit.isEmpty()) {
        try {
            const KOR::Unit unit(m_options.unit.toStdString());
            if (unit.base() == m_leftUnit.base())
                return unit;
        } catch (const KOR::Exception &) { // of another program or version
        }
    }
    return m_leftUnit;
}

void HygResultChart::rebuild() {
    ++*m_generation;
    m_pending = 0;
    for (SCI::Chart * chart : {m_chart, m_cutChart})
        chart->remove(SCI::Chart::ALL);
    m_drawn.clear();
    m_measuredLines.clear();
    m_field.reset();
    m_arrows.reset();
    m_arrowFile.reset();
    m_cutLine.reset();
    m_limits.clear();
    m_problems.clear();
    m_rightUnit = KOR::Unit();
    m_cutChart->hide();
    if (std::exchange(m_isNewView, false)) {
        m_hasValueRange = false;
        for (SCI::Chart * chart : {m_chart, m_cutChart})
            chart->resetView();
    }
    m_chart->setTitle({});
    m_chart->setConstantColumn({});
    showPlaceholder();
    if (m_files.empty()) {
        for (const SCI::axis_t axis : {SCI::X_BOTTOM, SCI::Y_LEFT})
            m_chart->setAxis(axis, {});
        emit shown();
        return;
    }
    for (const auto & file : m_files)
        if (!file->geometryProblem().isEmpty())
            complain(file->name() + ": " + file->geometryProblem());
    m_leftUnit = m_files[0]->valueUnit();
    try {
        if (isOverTime())
            buildCourses();
        else if (isField())
            buildField();
        else
            buildProfiles();
        addLimits();
        if (isOverTime())
            addMeasured();
        else
            showTime();
    } catch (const KOR::Exception & ex) {
        complain(HygCoreMessages::told(tr("Not everything can be shown."), QString::fromUtf8(ex.what())));
    }
    if (!m_hasValueRange || (m_cutLine && m_cutChart->isAutoRange(SCI::Y_LEFT)))
        applyRanges();
    showLimits();
    showPlaceholder();
    emit shown();
}

void HygResultChart::setEmptyText(const QString & text) {
    m_emptyText = text;
    showPlaceholder();
}

void HygResultChart::showPlaceholder() {
    const bool isWritten =
        std::any_of(m_files.begin(), m_files.end(), [](const auto & file) { return file->timeCount() > 0; });
    m_chart->setPlaceholder(m_files.empty() ? m_emptyText
                            : !isWritten    ? tr("Nothing has been written into this file yet.")
                            : m_pending > 0 ? tr("Reading…")
                                            : tr("The file holds no values that could be drawn."));
}

QString HygResultChart::timeText(double seconds, int startYear) {
    constexpr int COMMON_YEAR = 2001; // years have no leap day
    const double whole = std::round(seconds);
    const int years = static_cast<int>(std::floor(whole / KOR::SECONDS_PER_YEAR));
    const double ofYear = whole - years * static_cast<double>(KOR::SECONDS_PER_YEAR);
    const QDate day = QDate(COMMON_YEAR, 1, 1).addDays(static_cast<int>(ofYear / KOR::SECONDS_PER_DAY));
    const QTime time = QTime(0, 0).addSecs(static_cast<int>(std::fmod(ofYear, KOR::SECONDS_PER_DAY)));
    return QStringLiteral("%1 d (%2 %3)")
        .arg(HygFormat::locale().toString(seconds / KOR::SECONDS_PER_DAY, 'f', 2),
             HygFormat::date({startYear + years, day.month(), day.day()}), time.toString(QStringLiteral("HH:mm")));
}

void HygResultChart::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        setLocale(HygFormat::locale());
        rebuild();
    }
}

std::optional<SCI::axis_t> HygResultChart::axisFor(const HygResultFile & file) {
    if (file.valueUnit().base() == m_leftUnit.base())
        return SCI::Y_LEFT;
    if (m_rightUnit == KOR::Unit()) {
        m_rightUnit = file.valueUnit();
        m_chart->setAxis(SCI::Y_RIGHT, valueAxis(file, m_rightUnit, m_rightUnit));
    }
    if (file.valueUnit().base() == m_rightUnit.base())
        return SCI::Y_RIGHT;
    complain(tr("%1 is not shown: a chart has room for two kinds of units.").arg(file.name()));
    return std::nullopt;
}

HygResultChart::Drawn & HygResultChart::addLine(const std::shared_ptr<HygResultFile> & file, SCI::axis_t axis,
                                                bool isDewPoint) {
    Drawn drawn;
    drawn.file = file;
    drawn.line = std::make_shared<Line>();
    drawn.unit = axis == SCI::Y_LEFT ? m_leftUnit : m_rightUnit;
    drawn.isDewPoint = isDewPoint;
    if (isDewPoint)
        drawn.humidity = humidityOf(*file);
    SCI::LineStyle style;
    style.yAxis = axis;
    style.title = style.column = isDewPoint ? tr("Dew point of %1").arg(label(*file)) : label(*file);
    if (isDewPoint)
        style.pen = Qt::DashLine;
    drawn.id = m_chart->addLine(drawn.line, style);
    m_drawn.push_back(std::move(drawn));
    return m_drawn.back();
}

QString HygResultChart::label(const HygResultFile & file) const {
    QString text = file.name();
    // Files of the same name from several projects are told apart.
    const bool isAmbiguous = std::count_if(m_files.begin(), m_files.end(),
                                           [&file](const auto & other) { return other->name() == file.name(); }) > 1;
    if (isAmbiguous)
        text += " (" + QFileInfo(file.path()).dir().path().section('/', -2, -2) + ')';
    if (isOverTime() && file.valueCount() > 1)
        text += ", " + placeText(file);
    return text;
}

QString HygResultChart::placeText(const HygResultFile & file) const {
    return file.placeText(std::min(m_options.place, std::max<std::size_t>(1, file.valueCount()) - 1));
}

SCI::Axis HygResultChart::valueAxis(const HygResultFile & file, KOR::Unit own, KOR::Unit shown) const {
    const QString title = HygOutputTexts::quantity(file.header().quantityKeyword);
    return {title.isEmpty() ? QString::fromStdString(file.header().quantity) : title, unitName(own), unitName(shown)};
}

void HygResultChart::addDewPoint(const std::shared_ptr<HygResultFile> & temperature, SCI::axis_t axis) {
    if (!m_options.hasDewPoint || !isTemperature(*temperature))
        return;
    if (humidityOf(*temperature) != nullptr)
        addLine(temperature, axis, true);
    else
        complain(tr("%1: no humidity of the same places, so the dew point is unknown.").arg(temperature->name()));
}

void HygResultChart::setTimeAxis() {
    SCI::Axis axis;
    axis.title = tr("Time");
    axis.dataUnit = QStringLiteral("s");
    axis.shownUnit = QStringLiteral("d");
    if (m_options.hasDates) {
        axis.scale = SCI::DATE;
        axis.startYear = m_files[0]->header().startYear;
    }
    m_chart->setAxis(SCI::X_BOTTOM, axis);
}

void HygResultChart::buildCourses() {
    setTimeAxis();
    m_chart->setAxis(SCI::Y_LEFT, valueAxis(*m_files[0], m_leftUnit, shownUnit()));
    // What is common to all stands above; each line tells its own place in the legend.
    std::set<QString> places;
    for (const auto & file : m_files)
        places.insert(file->valueCount() > 1 ? placeText(*file) : QString());
    if (places.size() == 1)
        m_chart->setTitle(*places.begin());
    for (const auto & file : m_files)
        if (const auto axis = axisFor(*file)) {
            addLine(file, *axis, false);
            addDewPoint(file, *axis);
        }
    for (std::size_t i = 0; i < m_drawn.size(); ++i)
        requestCourse(i);
}

void HygResultChart::requestCourse(std::size_t index) {
    const Drawn & drawn = m_drawn[index];
    const std::size_t value = std::min(m_options.place, drawn.file->valueCount() - 1);
    const QString path = drawn.file->path();
    const QString humidity = drawn.humidity ? drawn.humidity->path() : QString();
    const quint64 size = static_cast<quint64>(QFileInfo(path).size());
    if (size <= READ_AT_ONCE) {
        ++m_pending;
        return takeCourse(*m_generation, index, true, HygResultFile::readSeries(path, value, false, {}, humidity));
    }
    ++m_pending;
    const QPointer<HygResultChart> self(this);
    QThreadPool::globalInstance()->start(
        [self, current = m_generation, generation = m_generation->load(), index, path, humidity, value, size] {
            const auto isStopped = [&current, generation] { return *current != generation; };
            const auto read = [&](bool sample) {
                const auto series = HygResultFile::readSeries(path, value, sample, isStopped, humidity);
                QMetaObject::invokeMethod(QCoreApplication::instance(), [self, generation, index, sample, series] {
                    if (self != nullptr)
                        self->takeCourse(generation, index, !sample, series);
                });
            };
            if (size > LOOK_FIRST)
                read(true);
            if (!isStopped())
                read(false);
        });
}

void HygResultChart::takeCourse(int generation, std::size_t index, bool isLast, const HygResultFile::Series & series) {
    if (generation != *m_generation)
        return;
    if (isLast)
        --m_pending;
    Drawn & drawn = m_drawn[index];
    if (!series.problem.isEmpty())
        complain(HygCoreMessages::told(tr("%1 cannot be read to its end.").arg(drawn.file->name()), series.problem));
    drawn.line->xs = series.times;
    drawn.line->ys = series.values;
    try {
        convertAll(drawn.isDewPoint ? KOR::Unit("C") : drawn.file->valueUnit(), drawn.unit, drawn.line->ys);
    } catch (const KOR::Exception & ex) {
        complain(HygCoreMessages::told(tr("Not everything can be shown."), QString::fromUtf8(ex.what())));
    }
    m_chart->dataChanged(drawn.id);
    showLimits();
    showPlaceholder();
    emit shown();
}

void HygResultChart::buildProfiles() {
    const int direction = directionOf(*m_files[0]);
    constexpr const char * NAMES[] = {"x", "y", "z"};
    m_chart->setAxis(SCI::X_BOTTOM, {QLatin1String(NAMES[direction]), QStringLiteral("m"), QStringLiteral("mm")});
    m_chart->setAxis(SCI::Y_LEFT, valueAxis(*m_files[0], m_leftUnit, shownUnit()));
    addLayers(*m_chart, direction, m_files[0]->cell(0));
    for (const auto & file : m_files) {
        if (file->format() != m_files[0]->format()) {
            complain(tr("%1 is not shown: its values do not lie along the same line.").arg(file->name()));
            continue;
        }
        const auto axis = axisFor(*file);
        if (!axis)
            continue;
        addLine(file, *axis, false);
        addDewPoint(file, *axis);
    }
    for (const Drawn & drawn : m_drawn) {
        drawn.line->xs.clear();
        for (std::size_t i = 0; i < drawn.file->valueCount(); ++i)
            drawn.line->xs.push_back(drawn.file->place(i)[static_cast<std::size_t>(direction)]);
    }
    findRange();
}

void HygResultChart::addLayers(SCI::Chart & chart, int along, const std::array<std::uint32_t, 3> & start) {
    const DATAIO::GeoFile & geometry = *m_files[0]->geometry();
    const auto direction = static_cast<std::size_t>(along);
    const std::vector<double> & edges = geometry.boundaries(along);
    // The cells of the line.
    std::vector<const DATAIO::GeoFile::Material *> materials(edges.size() - 1, nullptr);
    for (const auto & element : geometry.m_elements) {
        const std::array<std::uint32_t, 3> cell{element.i, element.j, element.k};
        bool isOnLine = cell[direction] < materials.size();
        for (std::size_t d = 0; d < 3; ++d)
            isOnLine = isOnLine && (d == direction || cell[d] == start[d]);
        if (isOnLine)
            materials[cell[direction]] = geometry.material(element.materialId);
    }
    bool isShaded = true; // every second one
    for (std::size_t first = 0; first < materials.size();) {
        std::size_t last = first;
        while (last + 1 < materials.size() && materials[last + 1] == materials[first])
            ++last;
        if (materials[first] != nullptr)
            chart.addBand(SCI::X_BOTTOM, edges[first], edges[last + 1], QString::fromStdString(materials[first]->name),
                          isShaded);
        isShaded = !isShaded;
        first = last + 1;
    }
}

void HygResultChart::buildField() {
    const auto file = m_files[0];
    m_field = std::make_shared<Field>(*file, m_options.normal, m_options.plane);
    constexpr const char * NAMES[] = {"x", "y", "z"};
    m_chart->setAxis(SCI::X_BOTTOM,
                     {QLatin1String(NAMES[m_field->plane.horizontal]), QStringLiteral("m"), QStringLiteral("mm")});
    m_chart->setAxis(SCI::Y_LEFT,
                     {QLatin1String(NAMES[m_field->plane.vertical]), QStringLiteral("m"), QStringLiteral("mm")});
    m_chart->setAxis(SCI::Y_RIGHT, valueAxis(*file, m_leftUnit, shownUnit()));
    m_field->setValues(file->values(0));
    SCI::GridStyle style;
    style.column = label(*file);
    style.isSmooth = m_options.isSmooth;
    style.hasIsolines = m_options.hasIsolines;
    style.map = isTemperature(*file) ? SCI::ColorMap::HEAT
                : isHumidity(*file)  ? SCI::ColorMap::WATER
                                     : SCI::ColorMap::SEQUENCE;
    Drawn drawn;
    drawn.file = file;
    drawn.unit = m_leftUnit;
    drawn.id = m_chart->addGrid(m_field, style);
    m_drawn.push_back(std::move(drawn));

    for (const auto & other : m_files)
        if (m_options.hasArrows && !m_arrowFile && other->header().type == DATAIO::DataHeader::FLUX &&
            other->format() == file->format() && other->valueCount() == other->header().indices.size()) {
            m_arrowFile = other;
            m_arrows = std::make_shared<Arrows>(*other, m_options.normal, m_options.plane);
            m_arrows->setValues(other->values(0));
            SCI::VectorStyle arrows;
            arrows.title = arrows.column = label(*other);
            arrows.unit = unitName(other->valueUnit());
            Drawn second;
            second.file = other;
            second.id = m_chart->addVectors(m_arrows, arrows);
            m_drawn.push_back(std::move(second));
        }
    for (const auto & other : m_files)
        if (other != file && other != m_arrowFile)
            complain(tr("%1 is not shown: a chart holds one field and the arrows of one flux.").arg(other->name()));
    buildCut();
    findRange();
}

void HygResultChart::addMeasured() {
    for (const HygMeasuredData::Column & column : m_measured.columns) {
        auto line = std::make_shared<Line>();
        line->xs = m_measured.times;
        line->ys = column.values;
        SCI::LineStyle style;
        style.title = tr("%1 (measured)").arg(column.name);
        style.hasPoints = true;
        style.pen = Qt::DotLine;
        if (!column.unit.isEmpty()) {
            const KOR::Unit unit(column.unit.toStdString());
            if (unit.base() == m_leftUnit.base()) {
                convertAll(unit, m_leftUnit, line->ys);
            } else if (m_rightUnit != KOR::Unit() && unit.base() == m_rightUnit.base()) {
                convertAll(unit, m_rightUnit, line->ys);
                style.yAxis = SCI::Y_RIGHT;
            } else {
                complain(tr("The measured column '%1' has the unit '%2', which fits to no axis.")
                             .arg(column.name, column.unit));
                continue;
            }
        }
        m_chart->addLine(line, style);
        m_measuredLines.push_back(line);
    }
}

void HygResultChart::complain(const QString & problem) {
    if (!m_problems.contains(problem))
        m_problems << problem;
}

void HygResultChart::setTime(double seconds) {
    m_wantedTime = seconds;
    if (m_files.empty() || isOverTime())
        return;
    try {
        showTime();
    } catch (const KOR::Exception & ex) {
        complain(HygCoreMessages::told(tr("Not everything can be shown."), QString::fromUtf8(ex.what())));
    }
    emit shown();
}

void HygResultChart::showTime() {
    if (timeCount() == 0)
        return;
    const double wanted = m_wantedTime.value_or(0);
    m_timeIndex = m_files[0]->indexAt(wanted);
    const double time = m_files[0]->time(m_timeIndex);
    const SCI::Range before[] = {m_scale->seen(false), m_scale->seen(true)};
    m_chart->setTitle(timeText(time, m_files[0]->header().startYear));
    for (SCI::Chart * chart : {m_chart, m_cutChart})
        chart->setConstantColumn(tr("Time") + " [d]", time / KOR::SECONDS_PER_DAY);
    if (m_field) {
        m_field->setValues(m_files[0]->values(m_timeIndex));
        for (const double value : m_field->values)
            m_scale->include(value);
        if (m_arrows)
            m_arrows->setValues(m_arrowFile->values(m_arrowFile->indexAt(time)));
        showCut();
    } else {
        for (const Drawn & drawn : m_drawn) {
            drawn.line->ys = drawn.file->values(drawn.file->indexAt(time));
            if (drawn.isDewPoint) {
                const KOR::Unit celsius("C"), part("%");
                std::vector<double> phi = drawn.humidity->values(drawn.humidity->indexAt(time));
                convertAll(drawn.humidity->valueUnit(), part, phi);
                convertAll(drawn.file->valueUnit(), celsius, drawn.line->ys);
                for (std::size_t i = 0; i < drawn.line->ys.size(); ++i)
                    drawn.line->ys[i] = HygResultHumidity::dewPoint(drawn.line->ys[i], phi[i]);
                convertAll(celsius, drawn.unit, drawn.line->ys);
            } else {
                convertAll(drawn.file->valueUnit(), drawn.unit, drawn.line->ys);
            }
            for (const double value : drawn.line->ys)
                m_scale->include(value, drawn.unit != m_leftUnit);
        }
    }
    for (const Drawn & drawn : m_drawn)
        m_chart->dataChanged(drawn.id);
    // The same scale at all times, so that playback shows what changes.
    for (const bool isRight : {false, true})
        if (m_scale->seen(isRight) != before[isRight ? 1 : 0])
            return applyRanges();
}

bool HygResultChart::refresh() {
    bool isMore = false;
    try {
        for (const auto & file : m_files)
            isMore = file->update() || isMore;
        for (const Drawn & drawn : m_drawn)
            if (drawn.humidity != nullptr)
                drawn.humidity->update();
    } catch (const KOR::Exception & ex) {
        complain(HygCoreMessages::told(tr("Not everything can be shown."), QString::fromUtf8(ex.what())));
    }
    if (!isMore)
        return false;
    if (!isOverTime()) {
        setTime(m_wantedTime.value_or(0));
    } else if (isComplete()) {
        for (std::size_t i = 0; i < m_drawn.size(); ++i)
            requestCourse(i);
    }
    return true;
}

QString HygResultChart::statistics() const {
    if (m_drawn.empty())
        return {};
    const KOR::Unit shown = shownUnit();
    const std::optional<double> threshold =
        m_options.threshold ? std::optional(converted(shown, m_leftUnit, *m_options.threshold)) : std::nullopt;
    QStringList lines;
    for (const Drawn & drawn : m_drawn) {
        if (drawn.isDewPoint || (m_field && drawn.file != m_files[0]))
            continue;
        HygResultStatistics s;
        if (isOverTime()) {
            s = HygResultStatistics::ofCourse(drawn.line->xs, drawn.line->ys, threshold);
        } else {
            std::vector<double> weights;
            const std::vector<double> & values = m_field ? m_field->values : drawn.line->ys;
            if (m_field) {
                const Plane & plane = m_field->plane;
                for (std::size_t row = 0; row < plane.rows(); ++row)
                    for (std::size_t column = 0; column < plane.columns(); ++column)
                        weights.push_back((plane.xEdges[column + 1] - plane.xEdges[column]) *
                                          (plane.yEdges[row + 1] - plane.yEdges[row]));
            } else if (drawn.file->header().type != DATAIO::DataHeader::FLUX) {
                const auto direction = static_cast<std::size_t>(directionOf(*drawn.file));
                const auto & widths = drawn.file->geometry()->widths(static_cast<int>(direction));
                for (std::size_t i = 0; i < values.size(); ++i)
                    weights.push_back(widths[drawn.file->cell(i)[direction]]);
            }
            if (m_field) // what is no cell is no missing value
                for (std::size_t i = 0; i < weights.size(); ++i)
                    weights[i] = m_field->plane.covers(i) ? weights[i] : 0;
            s = HygResultStatistics::ofPlaces(values, weights, m_field ? std::vector<double>() : drawn.line->xs,
                                              threshold);
        }
        if (s.count == 0 && s.missing == 0)
            continue;
        if (s.count == 0) {
            lines << tr("%1: no value").arg(label(*drawn.file));
            continue;
        }
        const KOR::Unit unit = drawn.unit == m_leftUnit ? shown : drawn.unit;
        const auto value = [&](double v) { return HygFormat::value(converted(drawn.unit, unit, v), unitName(unit)); };
        QString line =
            tr("%1: %2 to %3, mean %4").arg(label(*drawn.file), value(s.minimum), value(s.maximum), value(s.mean));
        if (threshold && s.weight > 0 && drawn.unit == m_leftUnit)
            line += (isOverTime() ? tr(", above %1 for %2 % of the time") : tr(", above %1 in %2 % of the extent"))
                        .arg(HygFormat::value(*m_options.threshold, unitName(shown)),
                             HygFormat::number(100 * s.above / s.weight, SHARE_DIGITS));
        if (const double all = s.weight + s.missing; s.missing > 0 && all > 0)
            line += (isOverTime() ? tr(", no value for %1 % of the time") : tr(", no value in %1 % of the extent"))
                        .arg(HygFormat::number(100 * s.missing / all, SHARE_DIGITS));
        lines << line;
    }
    return lines.join('\n');
}
