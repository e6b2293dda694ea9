#include "Table.h"

#include <SCI/Chart.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Numbers.h>

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QScreen>
#include <QSvgGenerator>

#include <cmath>

namespace SCI {

namespace {

constexpr int DOTS_PER_INCH = 96; ///< a pixel of a picture on paper
constexpr int PDF_RESOLUTION = 600;
constexpr int DIGITS = 15; ///< in tables: what units leave behind is cut off
constexpr int MIN_SIDE = 60;
constexpr int MAX_SIDE = 20000; ///< of a picture [px]
constexpr std::size_t MAX_CSV = std::size_t(1) << 30;

/// Takes care of quotes, separators and line ends in texts.
std::string cell(const QString & text, char separator) {
    std::string plain = text.toStdString();
    if (plain.find_first_of(std::string("\"\n\r") + separator) == std::string::npos)
        return plain;
    std::string quoted = "\"";
    for (const char c : plain)
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
}

/// Nothing for what is no number.
std::string cell(double value) {
    return std::isfinite(value) ? KOR::toString(value, DIGITS) : std::string();
}

/// Rows of cells, with a bound on their size.
class Csv {
public:
    /// \param always what stands in front of each row, below its title
    Csv(char separator, const std::optional<std::pair<QString, double>> & always)
        : m_separator(separator), m_always(always) {}
    void startHeader() {
        if (m_always)
            add(m_always->first);
    }
    void startRow() {
        if (m_always)
            add(m_always->second);
    }
    void add(const QString & text) { addCell(cell(text, m_separator)); }
    void add(double value) { addCell(cell(value)); }
    void endRow() {
        m_text += '\n';
        m_isFirst = true;
        if (m_text.size() > MAX_CSV)
            throw KOR::Exception("The table is larger than 1 GiB.", "[Chart::csv]");
    }
    std::string take() { return std::move(m_text); }

private:
    void addCell(const std::string & text) {
        if (!m_isFirst)
            m_text += m_separator;
        m_isFirst = false;
        m_text += text;
    }
    char m_separator;
    std::optional<std::pair<QString, double>> m_always;
    bool m_isFirst = true;
    std::string m_text;
};

/// \param unit with its brackets
QString header(const Table & table, const QString & quantity, const QString & unit) {
    if (!table.column.isEmpty())
        return unit.isEmpty() ? table.column : table.column + ' ' + unit;
    return table.title.isEmpty() || quantity.startsWith(table.title) ? quantity
                                                                     : table.title + QStringLiteral(": ") + quantity;
}

bool haveSameX(const Table & a, const Table & b) {
    if (a.points->count() != b.points->count() || a.xHeader != b.xHeader)
        return false;
    for (std::size_t i = 0; i < a.points->count(); ++i)
        if (a.points->x(i) != b.points->x(i))
            return false;
    return true;
}

/// Series with the same x share one column of it; others have their own.
void writePoints(Csv & csv, const std::vector<Table> & tables) {
    csv.startHeader();
    std::vector<bool> hasX;
    std::size_t rows = 0;
    for (std::size_t k = 0; k < tables.size(); ++k) {
        hasX.push_back(k == 0 || !haveSameX(tables[k - 1], tables[k]));
        rows = std::max(rows, tables[k].points->count());
        if (hasX.back())
            csv.add(tables[k].xHeader);
        csv.add(header(tables[k], tables[k].yHeader, tables[k].unit));
    }
    csv.endRow();
    for (std::size_t i = 0; i < rows; ++i) {
        csv.startRow();
        for (std::size_t k = 0; k < tables.size(); ++k) {
            const bool isThere = i < tables[k].points->count();
            const double none = std::numeric_limits<double>::quiet_NaN();
            if (hasX[k])
                csv.add(isThere ? tables[k].xUnit.shown(tables[k].points->x(i)) : none);
            csv.add(isThere ? tables[k].yUnit.shown(tables[k].points->y(i)) : none);
        }
        csv.endRow();
    }
}

/// A row a cell: its centre and its value.
void writeGrid(Csv & csv, const Table & table) {
    csv.startHeader();
    for (const QString & text : {table.xHeader, table.yHeader, header(table, table.valueHeader, table.unit)})
        csv.add(text);
    csv.endRow();
    const GridModel & grid = *table.grid;
    for (std::size_t j = 0; j < grid.rows(); ++j)
        for (std::size_t i = 0; i < grid.columns(); ++i) {
            csv.startRow();
            csv.add(table.xUnit.shown((grid.xEdge(i) + grid.xEdge(i + 1)) / 2));
            csv.add(table.yUnit.shown((grid.yEdge(j) + grid.yEdge(j + 1)) / 2));
            csv.add(table.valueUnit.shown(grid.value(i, j)));
            csv.endRow();
        }
}

void writeVectors(Csv & csv, const Table & table) {
    csv.startHeader();
    csv.add(table.xHeader);
    csv.add(table.yHeader);
    for (const char * part : {" (x)", " (y)"})
        csv.add(header(table, table.valueHeader, table.unit) + QLatin1String(part));
    csv.endRow();
    const VectorModel & vectors = *table.vectors;
    for (std::size_t i = 0; i < vectors.count(); ++i) {
        csv.startRow();
        csv.add(table.xUnit.shown(vectors.x(i)));
        csv.add(table.yUnit.shown(vectors.y(i)));
        csv.add(vectors.xPart(i));
        csv.add(vectors.yPart(i));
        csv.endRow();
    }
}

void save(const QString & path, const std::string & content, const char * where) {
    try {
        KOR::writeFile(path.toStdString(), content);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Error writing '%1'.", path.toStdString()), where);
    }
}

void checkSize(const QSize & size, double scale) {
    if (size.width() < MIN_SIDE || size.height() < MIN_SIDE || !(scale > 0) || size.width() * scale > MAX_SIDE ||
        size.height() * scale > MAX_SIDE)
        throw KOR::Exception(KOR::text("A picture of %1 x %2 pixels cannot be drawn, the sides must be from %3 to %4.",
                                       size.width() * scale, size.height() * scale, MIN_SIDE, MAX_SIDE),
                             "[Chart::picture]");
}

} // namespace

std::string Chart::csv(char separator) const {
    std::vector<Table> points;
    Csv csv(separator, constantColumn());
    const std::vector<Table> all = tables();
    for (const Table & table : all)
        if (table.points != nullptr)
            points.push_back(table);
    bool isFirst = true;
    const auto separate = [&] { // an empty row between two tables
        if (!std::exchange(isFirst, false))
            csv.endRow();
    };
    if (!points.empty()) {
        separate();
        writePoints(csv, points);
    }
    for (const Table & table : all)
        if (table.points == nullptr) {
            separate();
            table.grid != nullptr ? writeGrid(csv, table) : writeVectors(csv, table);
        }
    return csv.take();
}

QByteArray Chart::picture(format_t format, const QSize & size, double scale) const {
    return picture(format, size, scale, title(),
                   [this](QPainter & painter, const QRectF & rectangle) { render(painter, rectangle); });
}

QByteArray Chart::picture(format_t format, const QSize & size, double scale, const QString & title,
                          const Drawing & draw) {
    checkSize(size, format == PNG ? scale : 1);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    switch (format) {
    case PNG: {
        QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
        const int dots = qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchX() * scale / 0.0254);
        image.setDotsPerMeterX(dots);
        image.setDotsPerMeterY(dots);
        QPainter painter(&image);
        draw(painter, QRectF(QPointF(0, 0), QSizeF(image.size())));
        painter.end();
        if (!image.save(&buffer, "PNG"))
            throw KOR::Exception("The picture cannot be made, probably out of memory.", "[Chart::picture]");
        break;
    }
    case SVG: {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setResolution(DOTS_PER_INCH);
        generator.setSize(size);
        generator.setViewBox(QRect(QPoint(0, 0), size));
        generator.setTitle(title);
        QPainter painter(&generator);
        draw(painter, QRectF(QPointF(0, 0), QSizeF(size)));
        break;
    }
    case PDF: {
        QPdfWriter writer(&buffer);
        const QSizeF inches = QSizeF(size) / DOTS_PER_INCH;
        writer.setPageSize(QPageSize(inches, QPageSize::Inch, QString(), QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF());
        writer.setResolution(PDF_RESOLUTION);
        writer.setTitle(title);
        QPainter painter(&writer);
        draw(painter, QRectF(QPointF(0, 0), inches * PDF_RESOLUTION));
        break;
    }
    }
    return bytes;
}

void Chart::writePicture(const QString & path, const QSize & size, double scale) const {
    writePicture(path, size, scale, title(),
                 [this](QPainter & painter, const QRectF & rectangle) { render(painter, rectangle); });
}

void Chart::writePicture(const QString & path, const QSize & size, double scale, const QString & title,
                         const Drawing & draw) {
    constexpr std::pair<const char *, format_t> FORMATS[] = {
        {"png", PNG},
        {"svg", SVG},
        {"pdf", PDF}
    };
    const QString suffix = QFileInfo(path).suffix().toLower();
    for (const auto & [name, format] : FORMATS)
        if (suffix == QLatin1String(name))
            return save(path, picture(format, size, scale, title, draw).toStdString(), "[Chart::writePicture]");
    throw KOR::Exception(
        KOR::text("Cannot write a picture to '%1', expected a name that ends in png, svg or pdf.", path.toStdString()),
        "[Chart::writePicture]");
}

void Chart::writeCsv(const QString & path) const {
    save(path, csv(), "[Chart::writeCsv]");
}

void Chart::copyPicture() const {
    QApplication::clipboard()->setImage(image(size(), devicePixelRatioF()));
}

void Chart::copySvg() const {
    auto * mime = new QMimeData;
    const QByteArray svg = picture(SVG, size());
    mime->setData(QStringLiteral("image/svg+xml"), svg);
    mime->setText(QString::fromUtf8(svg));
    QApplication::clipboard()->setMimeData(mime);
}

void Chart::copyCsv() const {
    auto * mime = new QMimeData;
    mime->setData(QStringLiteral("text/csv"), QByteArray::fromStdString(csv()));
    mime->setText(QString::fromStdString(csv('\t'))); // what spreadsheets paste
    QApplication::clipboard()->setMimeData(mime);
}

} // namespace SCI
