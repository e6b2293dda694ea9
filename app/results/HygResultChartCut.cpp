// The values along a line through a field, below the field.
#include "HygResultChart.h"

#include <QPainter>

#include <algorithm>
#include <utility>

using HygResultModels::Plane;

namespace {

constexpr double CUT_SHARE = 0.35; ///< of the height of pictures

QString unitName(KOR::Unit unit) {
    return QString::fromStdString(unit.name());
}

} // namespace

void HygResultChart::buildCut() {
    if (m_options.cut == NoCut)
        return;
    const Plane & plane = m_field->plane;
    const bool isAlongX = m_options.cut == AlongX;
    constexpr const char * NAMES[] = {"x", "y", "z"};
    m_cutLine = std::make_shared<Line>();
    m_cutLine->xs = isAlongX ? plane.xCentres : plane.yCentres;
    m_cutChart->setAxis(SCI::X_BOTTOM, {QLatin1String(NAMES[isAlongX ? plane.horizontal : plane.vertical]),
                                        QStringLiteral("m"), QStringLiteral("mm")});
    m_cutChart->setAxis(SCI::Y_LEFT, {QString::fromStdString(m_files[0]->header().quantity), unitName(m_leftUnit),
                                      unitName(shownUnit())});
    // The cells along the cut.
    std::array<std::uint32_t, 3> start = m_files[0]->cell(0);
    if (m_files[0]->format() == HygResultFile::Format::VOLUME)
        start[static_cast<std::size_t>(m_options.normal)] = static_cast<std::uint32_t>(m_options.plane);
    start[static_cast<std::size_t>(isAlongX ? plane.vertical : plane.horizontal)] =
        static_cast<std::uint32_t>(cutIndex());
    addLayers(*m_cutChart, isAlongX ? plane.horizontal : plane.vertical, start);
    SCI::LineStyle style;
    style.column = label(*m_files[0]);
    m_cutChart->addLine(m_cutLine, style);
    m_cutChart->show();
    m_chart->addThreshold(isAlongX ? SCI::Y_LEFT : SCI::X_BOTTOM, cutPosition(), tr("Cut"));
}

double HygResultChart::cutPosition() const {
    const std::vector<double> & across = m_options.cut == AlongX ? m_field->plane.yEdges : m_field->plane.xEdges;
    return across.front() + m_options.cutPlace * (across.back() - across.front());
}

std::size_t HygResultChart::cutIndex() const {
    const std::vector<double> & across = m_options.cut == AlongX ? m_field->plane.yEdges : m_field->plane.xEdges;
    return static_cast<std::size_t>(std::upper_bound(across.begin() + 1, across.end() - 1, cutPosition()) -
                                    across.begin()) -
           1;
}

void HygResultChart::alignCut() {
    if (!m_cutLine || std::exchange(m_isAligning, true))
        return;
    if (m_options.cut == AlongX && m_chart->axis(SCI::X_BOTTOM).unit() == m_cutChart->axis(SCI::X_BOTTOM).unit())
        m_cutChart->setRange(SCI::X_BOTTOM, m_chart->range(SCI::X_BOTTOM)); // below the same places
    SCI::Chart::align(*m_chart, *m_cutChart, m_chart->size(), m_cutChart->size());
    m_isAligning = false;
}

void HygResultChart::showCut() {
    if (!m_cutLine)
        return;
    const bool isAlongX = m_options.cut == AlongX;
    const std::size_t line = cutIndex();
    m_cutLine->ys.clear();
    for (std::size_t i = 0; i < m_cutLine->xs.size(); ++i)
        m_cutLine->ys.push_back(isAlongX ? m_field->value(i, line) : m_field->value(line, i));
    m_cutChart->dataChanged();
}

QImage HygResultChart::image(const QSize & size, double scale) const {
    if (!m_cutLine)
        return m_chart->image(size, scale);
    const QSize lower(size.width(), static_cast<int>(size.height() * CUT_SHARE));
    const QSize upper(size.width(), size.height() - lower.height());
    QImage both(size * scale, QImage::Format_ARGB32_Premultiplied);
    both.setDevicePixelRatio(scale);
    SCI::Chart::align(*m_chart, *m_cutChart, upper, lower);
    QPainter painter(&both);
    painter.drawImage(QPointF(0, 0), m_chart->image(upper, scale));
    painter.drawImage(QPointF(0, upper.height()), m_cutChart->image(lower, scale));
    SCI::Chart::align(*m_chart, *m_cutChart, m_chart->size(), m_cutChart->size());
    return both;
}
