// The values along a line through a field, below the field.
#include "HygFormat.h"
#include "HygResultChart.h"

#include <KOR/UnitList.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QSplitter>

#include <algorithm>
#include <utility>

using HygResultModels::Plane;

namespace {

constexpr double CUT_SHARE = 0.35; ///< of the height of pictures
constexpr double MM = 1000;

} // namespace

void HygResultChart::buildCut() {
    if (m_options.cut == NoCut) {
        m_shownCut = NoCut;
        return;
    }
    if (std::exchange(m_shownCut, m_options.cut) != m_options.cut) // another coordinate
        m_cutChart->setAutoRange(SCI::X_BOTTOM);
    const Plane & plane = m_field->plane;
    const bool isAlongX = m_options.cut == AlongX;
    constexpr const char * NAMES[] = {"x", "y", "z"};
    m_cutLine = std::make_shared<Line>();
    m_cutLine->xs = isAlongX ? plane.xCentres : plane.yCentres;
    m_cutChart->setAxis(SCI::X_BOTTOM, {QLatin1String(NAMES[isAlongX ? plane.horizontal : plane.vertical]),
                                        QStringLiteral("m"), QStringLiteral("mm")});
    m_cutChart->setAxis(SCI::Y_LEFT, valueAxis(*m_files[0], m_leftUnit, shownUnit()));
    // The cells along the cut.
    std::array<std::uint32_t, 3> start = m_files[0]->cell(0);
    if (m_files[0]->format() == HygResultFile::Format::VOLUME)
        start[static_cast<std::size_t>(m_options.normal)] = static_cast<std::uint32_t>(m_options.plane);
    start[static_cast<std::size_t>(isAlongX ? plane.vertical : plane.horizontal)] =
        static_cast<std::uint32_t>(cutIndex());
    addLayers(*m_cutChart, isAlongX ? plane.horizontal : plane.vertical, start);
    SCI::LineStyle style;
    style.column = label(*m_files[0]) + ", " + cutText();
    m_cutChart->addLine(m_cutLine, style);
    m_cutChart->show();
    m_chart->addThreshold(isAlongX ? SCI::Y_LEFT : SCI::X_BOTTOM, cutPosition(), cutText());
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
    const SCI::axis_t along = m_options.cut == AlongX ? SCI::X_BOTTOM : SCI::Y_LEFT;
    if (m_chart->axis(along).unit() == m_cutChart->axis(SCI::X_BOTTOM).unit()) {
        SCI::Range seen = m_chart->range(along); // below the same places
        if (m_options.cut == AlongY) {           // the ground around a field needs no room there
            const std::vector<double> & edges = m_field->plane.yEdges;
            double from = edges.front(), to = edges.back();
            for (double * end : {&from, &to})
                KOR::UnitList::instance().convert(KOR::Unit("m"), KOR::Unit(m_chart->axis(along).unit().toStdString()),
                                                  *end);
            if (to > seen.from && from < seen.to)
                seen = {std::max(seen.from, from), std::min(seen.to, to)};
        }
        m_cutChart->setRange(SCI::X_BOTTOM, seen);
    }
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

QString HygResultChart::cutText() const {
    if (!m_cutLine)
        return {};
    constexpr const char * NAMES[] = {"x", "y", "z"};
    const Plane & plane = m_field->plane;
    return QStringLiteral("%1 = %2 mm")
        .arg(QLatin1String(NAMES[m_options.cut == AlongX ? plane.vertical : plane.horizontal]),
             HygFormat::number(MM * cutPosition()));
}

void HygResultChart::render(QPainter & painter, const QRectF & rectangle) const {
    if (!m_cutLine)
        return m_chart->render(painter, rectangle);
    const double scale = painter.device()->logicalDpiX() / static_cast<double>(m_chart->logicalDpiX());
    const QSize whole = (rectangle.size() / scale).toSize();
    const QSize lower(whole.width(), static_cast<int>(whole.height() * CUT_SHARE));
    const QSize upper(whole.width(), whole.height() - lower.height());
    SCI::Chart::align(*m_chart, *m_cutChart, upper, lower);
    m_chart->render(painter, QRectF(rectangle.topLeft(), QSizeF(upper) * scale));
    m_cutChart->render(painter,
                       QRectF(rectangle.topLeft() + QPointF(0, upper.height() * scale), QSizeF(lower) * scale));
    SCI::Chart::align(*m_chart, *m_cutChart, m_chart->size(), m_cutChart->size());
}

QImage HygResultChart::image(const QSize & size, double scale) const {
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    const int dots = qRound(m_chart->logicalDpiX() * scale / 0.0254);
    image.setDotsPerMeterX(dots);
    image.setDotsPerMeterY(dots);
    QPainter painter(&image);
    render(painter, QRectF(QPointF(0, 0), QSizeF(image.size())));
    return image;
}

std::string HygResultChart::csv(char separator) const {
    std::string all = m_chart->csv(separator);
    if (m_cutLine)
        all += '\n' + m_cutChart->csv(separator);
    return all;
}

void HygResultChart::copyPicture() const {
    QGuiApplication::clipboard()->setImage(image(m_splitter->size(), devicePixelRatioF()));
}

void HygResultChart::copyTable() const {
    auto * mime = new QMimeData;
    mime->setData(QStringLiteral("text/csv"), QByteArray::fromStdString(csv()));
    mime->setText(QString::fromStdString(csv('\t'))); // what spreadsheets paste
    QGuiApplication::clipboard()->setMimeData(mime);
}
