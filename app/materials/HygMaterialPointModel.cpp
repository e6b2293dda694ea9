#include "materials/HygMaterialPointModel.h"

#include "document/HygBackground.h"
#include "materials/HygMaterialDocument.h"
#include "materials/HygMaterialTexts.h"

#include <QtExt/Palette.h>

#include <KOR/Exception.h>
#include <KOR/Numbers.h>

#include <QStringList>

#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr int TIDY_DIGITS = 12;

/// The power of ten that is not above a pixel.
double finest(double step) {
    return step > 0 && std::isfinite(step) ? std::pow(10, std::floor(std::log10(step))) : 0;
}
/// Without the digits that sums of tenths leave behind.
double tidy(double value) {
    return KOR::parseDouble(KOR::toString(value, TIDY_DIGITS)).value_or(value);
}
double rounded(double value, double step) {
    const double unit = finest(step);
    return unit > 0 ? tidy(std::round(value / unit) * unit) : value;
}

constexpr int LONG_TEXT = 50'000; ///< [characters] read at once up to this

struct Points {
    std::vector<double> x, y;
};

} // namespace

HygMaterialPointModel::HygMaterialPointModel(HygMaterialDocument & document, QObject * parent)
    : HygMaterialRowModel(parent), m_document(document) {
    connect(&m_document, &HygMaterialDocument::changed, this, &HygMaterialPointModel::takeOver);
    m_rows = static_cast<int>(spline().size());
}

const KOR::LinearSpline & HygMaterialPointModel::spline() const {
    return HygMaterialFunctions::spline(m_document.material(), m_place);
}

void HygMaterialPointModel::setPlace(const HygMaterialFunctions::Place & place) {
    beginResetModel();
    m_place = place;
    m_rows = static_cast<int>(spline().size());
    endResetModel();
    retranslate();
}

void HygMaterialPointModel::retranslate() {
    emit headerDataChanged(Qt::Horizontal, 0, NUM_COLUMNS - 1);
}

void HygMaterialPointModel::takeOver() {
    const int rows = static_cast<int>(spline().size());
    if (rows == m_rows) {
        if (rows > 0)
            emit dataChanged(index(0, 0), index(rows - 1, NUM_COLUMNS - 1));
        return;
    }
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

void HygMaterialPointModel::change(const QString & text, std::vector<double> x, std::vector<double> y,
                                   const QString & field) {
    m_document.change(
        text,
        [&](MM::Material & material) {
            HygMaterialFunctions::setPoints(material, m_place, std::move(x), std::move(y));
        },
        field);
}

void HygMaterialPointModel::insertAfter(int row) {
    std::vector<double> x = spline().x();
    std::vector<double> y = spline().y();
    const int last = static_cast<int>(x.size()) - 1;
    if (x.empty()) {
        x = {0};
        y = {0};
    } else {
        const auto at = static_cast<std::size_t>(std::clamp(row, 0, last));
        const bool isLast = at + 1 == x.size();
        const double step = x.size() > 1 ? x[at] - x[at - 1] : 1;
        const double newX = isLast ? x[at] + step : (x[at] + x[at + 1]) / 2;
        const double newY = isLast ? y[at] : (y[at] + y[at + 1]) / 2;
        x.insert(x.begin() + static_cast<std::ptrdiff_t>(at) + 1, newX);
        y.insert(y.begin() + static_cast<std::ptrdiff_t>(at) + 1, newY);
    }
    change(tr("Insert point"), std::move(x), std::move(y));
}

void HygMaterialPointModel::removeEntries(const std::vector<int> & rows) {
    std::vector<double> x;
    std::vector<double> y;
    auto removed = rows.begin();
    for (int i = 0; i < m_rows; ++i) {
        if (removed != rows.end() && *removed == i) {
            ++removed;
            continue;
        }
        x.push_back(spline().x()[static_cast<std::size_t>(i)]);
        y.push_back(spline().y()[static_cast<std::size_t>(i)]);
    }
    change(tr("Remove points"), std::move(x), std::move(y));
}

void HygMaterialPointModel::movePoint(int row, double newX, double newY, double xStep, double yStep,
                                      const QString & field) {
    std::vector<double> x = spline().x();
    std::vector<double> y = spline().y();
    const auto at = static_cast<std::size_t>(row);
    if (at >= x.size() || !std::isfinite(newX) || !std::isfinite(newY))
        return;
    newX = rounded(newX, xStep);
    // A pixel from its neighbours, or between them where they are closer.
    const double low = at > 0 ? x[at - 1] : -std::numeric_limits<double>::infinity();
    const double high = at + 1 < x.size() ? x[at + 1] : std::numeric_limits<double>::infinity();
    const double distance = std::min(finest(xStep), (high - low) / 4);
    if (newX < low + distance)
        newX = tidy(low + distance);
    if (newX > high - distance)
        newX = tidy(high - distance);
    x[at] = newX;
    y[at] = rounded(newY, yStep);
    change(tr("Move point"), std::move(x), std::move(y), field);
}

void HygMaterialPointModel::setText(const QString & text) {
    const auto read = std::make_shared<Points>();
    const auto work = [read, text] {
        int line = 0;
        for (int begin = 0; begin < text.size(); ++line) {
            int end = text.indexOf(QLatin1Char('\n'), begin);
            end = end < 0 ? text.size() : end;
            const QString content = text.mid(begin, end - begin);
            begin = end + 1;
            const QStringList values = parts(content);
            if (values.isEmpty())
                continue;
            const auto first = number(values[0]);
            const auto second = values.size() == 2 ? number(values[1]) : std::nullopt;
            if (!first || !second)
                throw KOR::Exception(
                    tr("Line %1 does not hold two numbers: '%2'.").arg(line + 1).arg(content.left(80)).toStdString(),
                    "[HygMaterialPointModel::setText]");
            read->x.push_back(*first);
            read->y.push_back(*second);
            if (read->x.size() > MM::MaterialFunctionBase::MAX_POINTS)
                throw KOR::Exception(
                    tr("A function has at most %1 points.").arg(MM::MaterialFunctionBase::MAX_POINTS).toStdString(),
                    "[HygMaterialPointModel::setText]");
        }
    };
    if (text.size() <= LONG_TEXT)
        work();
    else
        HygBackground::run(tr("Reading the points"), work);
    change(tr("Paste points"), std::move(read->x), std::move(read->y));
}

QString HygMaterialPointModel::text() const {
    std::string lines;
    for (std::size_t i = 0; i < spline().size(); ++i)
        lines += KOR::toString(spline().x()[i]) + '\t' + KOR::toString(spline().y()[i]) + '\n';
    return QString::fromStdString(lines);
}

void HygMaterialPointModel::clearPoints() {
    change(tr("Remove function"), {}, {});
}

int HygMaterialPointModel::rowCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int HygMaterialPointModel::columnCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : NUM_COLUMNS;
}

QVariant HygMaterialPointModel::data(const QModelIndex & index, int role) const {
    if (!index.isValid() || index.row() >= static_cast<int>(spline().size()))
        return {};
    const auto i = static_cast<std::size_t>(index.row());
    const std::vector<double> & x = spline().x();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return shown(index.column() == XColumn ? x[i] : spline().y()[i]);
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    default:
        break;
    }
    const bool isWrong = index.column() == XColumn && i > 0 && !(x[i] > x[i - 1]);
    if (isWrong && role == Qt::BackgroundRole)
        return QtExt::Palette::color(QtExt::Palette::ERROR_BASE);
    if (isWrong && role == Qt::ToolTipRole)
        return tr("The value must be greater than the one above.");
    return {};
}

QVariant HygMaterialPointModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    const HygMaterialFunctions::Row & row = HygMaterialFunctions::row(m_place.row);
    return section == XColumn ? QStringLiteral("%1 [%2]").arg(HygMaterialFunctions::xTitle(m_place),
                                                              HygMaterialTexts::unit(QLatin1String(row.xUnit)))
                              : QStringLiteral("%1 [%2]").arg(HygMaterialFunctions::yTitle(m_place),
                                                              HygMaterialTexts::unit(QLatin1String(row.yUnit)));
}

Qt::ItemFlags HygMaterialPointModel::flags(const QModelIndex & index) const {
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool HygMaterialPointModel::setData(const QModelIndex & index, const QVariant & value, int role) {
    if (!index.isValid() || role != Qt::EditRole)
        return false;
    const auto given = number(value.toString());
    if (!given) {
        emit refused(tr("'%1' is not a number.").arg(value.toString()));
        return false;
    }
    std::vector<double> x = spline().x();
    std::vector<double> y = spline().y();
    (index.column() == XColumn ? x : y)[static_cast<std::size_t>(index.row())] = *given;
    change(tr("Change point"), std::move(x), std::move(y));
    return true;
}
