// Limits in the chart, the ranges of its axes, and what belongs to temperatures and humidities.
#include "HygFormat.h"
#include "HygResultChart.h"
#include "HygResultHumidity.h"

#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using HygResultHumidity::isHumidity;
using HygResultHumidity::isTemperature;

namespace {

constexpr double MARGIN = 0.04;      ///< above and below values, of their range
constexpr double MOST_WIDENING = 50; ///< times the range; a limit that is farther away is told

double converted(KOR::Unit from, KOR::Unit to, double value) {
    KOR::UnitList::instance().convert(from, to, value);
    return value;
}

} // namespace

void HygResultChart::addLimit(SCI::axis_t axis, KOR::Unit unit, double value, const QString & text) {
    const bool isLeft = axis == SCI::Y_LEFT;
    m_chart->addThreshold(axis, converted(unit, isLeft ? m_leftUnit : m_rightUnit, value), text);
    m_limits.push_back({axis, converted(unit, isLeft ? shownUnit() : m_rightUnit, value), text});
}

void HygResultChart::addLimits() {
    const KOR::Unit shown = shownUnit();
    if (m_options.threshold) {
        const QString text = HygFormat::value(*m_options.threshold, QString::fromStdString(shown.name()));
        if (!isField()) {
            addLimit(SCI::Y_LEFT, shown, *m_options.threshold, text);
        } else if (m_cutLine) {
            m_cutChart->addThreshold(SCI::Y_LEFT, converted(shown, m_leftUnit, *m_options.threshold), text);
            m_limits.push_back({SCI::Y_LEFT, *m_options.threshold, text});
        }
    }
    if (!m_options.hasMouldLimit || isField())
        return;
    for (const auto & file : m_files)
        if (isHumidity(*file)) {
            const bool isLeft = file->valueUnit().base() == m_leftUnit.base();
            addLimit(isLeft ? SCI::Y_LEFT : SCI::Y_RIGHT, KOR::Unit("---"), MOULD_LIMIT, QStringLiteral("80 %"));
            break;
        }
}

SCI::Range HygResultChart::withLimits(SCI::axis_t axis, const SCI::Range & range) {
    SCI::Range wide = range;
    for (const Limit & limit : m_limits) {
        if (limit.axis != axis)
            continue;
        SCI::Range wider{std::min(wide.from, limit.value), std::max(wide.to, limit.value)};
        const double margin = MARGIN * (wider.to - wider.from);
        wider = {std::min(wider.from, limit.value - margin), std::max(wider.to, limit.value + margin)};
        if (wider.to - wider.from > MOST_WIDENING * (range.to - range.from))
            complain(tr("The limit %1 lies far from the values and is not drawn.").arg(limit.text));
        else
            wide = wider;
    }
    return wide;
}

void HygResultChart::showLimits() {
    releaseLimits();
    if (isField())
        return;
    for (const SCI::axis_t axis : {SCI::Y_LEFT, SCI::Y_RIGHT}) {
        if (!m_chart->isAutoRange(axis) || !m_chart->isUsed(axis))
            continue;
        const SCI::Range range = m_chart->range(axis), wide = withLimits(axis, range);
        if (wide == range)
            continue;
        m_chart->setRange(axis, wide);
        m_limitRanges[axis] = m_chart->range(axis);
    }
}

void HygResultChart::releaseLimits() {
    for (const auto & [axis, range] : std::exchange(m_limitRanges, {}))
        if (m_chart->range(axis) == range) // the user looks at no other
            m_chart->setAutoRange(axis);
}

void HygResultChart::findRange() {
    const bool isAmount = m_field && m_field->plane.ofCell.empty();
    m_scale->sample(*m_files[0], isAmount);
    for (const Drawn & drawn : m_drawn) {
        if (m_field && (drawn.file != m_files[0] || isAmount))
            continue; // of arrows their amounts count, which the samples tell well enough
        m_scale->scan(*drawn.file, drawn.humidity ? drawn.humidity->path() : QString(), drawn.unit,
                      drawn.unit != m_leftUnit);
    }
}

void HygResultChart::applyRanges() {
    if (isOverTime())
        return;
    for (const bool isRight : {false, true}) {
        const SCI::Range & seen = m_scale->seen(isRight);
        if (!(seen.from < seen.to))
            continue;
        const KOR::Unit own = isRight ? m_rightUnit : m_leftUnit;
        const KOR::Unit shown = isRight ? m_rightUnit : shownUnit();
        const double margin = m_field ? 0 : MARGIN * (seen.to - seen.from);
        const double from = converted(own, shown, seen.from - margin);
        const double to = converted(own, shown, seen.to + margin);
        const SCI::Range range{std::min(from, to), std::max(from, to)};
        const SCI::axis_t axis = isRight ? SCI::Y_RIGHT : SCI::Y_LEFT;
        if (m_field)
            m_chart->setRange(SCI::Y_RIGHT, range);
        else
            m_chart->setRange(axis, withLimits(axis, range));
        m_hasValueRange = true;
        if (m_cutLine)
            m_cutChart->setRange(SCI::Y_LEFT, withLimits(SCI::Y_LEFT, range));
    }
}

void HygResultChart::keepScale() {
    if (isOverTime() || !m_hasValueRange || m_isScaling)
        return;
    const auto isLost = [this](bool isRight) {
        const SCI::Range & seen = m_scale->seen(isRight);
        return seen.from < seen.to && m_chart->isAutoRange(isRight || m_field ? SCI::Y_RIGHT : SCI::Y_LEFT);
    };
    if (!isLost(false) && !isLost(true))
        return;
    m_isScaling = true;
    applyRanges();
    m_isScaling = false;
}

std::shared_ptr<HygResultFile> HygResultChart::humidityOf(HygResultFile & temperature) {
    const QDir folder = QFileInfo(temperature.path()).dir();
    const QDateTime changed = QFileInfo(folder.path()).lastModified();
    const auto known = m_humidities.find(temperature.path());
    if (known != m_humidities.end() && (known->second.file != nullptr || known->second.looked == changed))
        return known->second.file;
    Humidity & found = m_humidities[temperature.path()];
    found.looked = changed;
    try {
        for (const auto & file : m_files)
            if (HygResultHumidity::belongs(file->data(), temperature.data()))
                return found.file = file;
    } catch (const KOR::Exception &) { // told when it is drawn
    }
    for (const QString & name : folder.entryList({QStringLiteral("*.h6b"), QStringLiteral("*.h6o")}, QDir::Files)) {
        try {
            DATAIO::DataIO beside;
            beside.openAndReadHeader(folder.filePath(name).toStdString());
            if (HygResultHumidity::belongs(beside, temperature.data()))
                return found.file = std::make_shared<HygResultFile>(folder.filePath(name));
        } catch (const KOR::Exception &) { // one that cannot be read is no companion
        }
    }
    return nullptr;
}

QString HygResultChart::dewPointObstacle() {
    bool isThere = false;
    for (const auto & file : m_files) {
        if (!isTemperature(*file))
            continue;
        isThere = true;
        if (humidityOf(*file) != nullptr)
            return {};
    }
    return isThere ? tr("No dew point: none of the files beside it holds the relative humidity of the same places.")
                   : tr("No dew point: it belongs to temperatures, and none is shown.");
}

QString HygResultChart::mouldLimitObstacle() const {
    const bool isThere =
        std::any_of(m_files.begin(), m_files.end(), [](const auto & file) { return isHumidity(*file); });
    return isThere ? QString() : tr("No line at 80 %: it belongs to relative humidities, and none is shown.");
}
