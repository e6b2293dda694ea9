#include "materials/HygMaterialMeasuredTable.h"

#include "materials/HygMaterialDocument.h"
#include "materials/HygMaterialTexts.h"

#include <KOR/Exception.h>

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace {

constexpr int MAX_LINES = 900'000; ///< the reader takes a million in the whole file
constexpr int KEYWORD_WIDTH = 24;

constexpr const char * ENUMERATIONS[] = {"MeasuredData::WaterRetentionValues",
                                         "MeasuredData::WaterVapourPermeabilityValues",
                                         "MeasuredData::LiquidWaterConductivityValues",
                                         "MeasuredData::WaterUptakeValues",
                                         "MeasuredData::DryingValues0",
                                         "MeasuredData::DryingValues1"};

/// A line as columns: keyword and value, or all of it in the first one.
struct Parts {
    QString indent, keyword, value;
    bool isPair = false;

    explicit Parts(const std::string & text) {
        const QString line = QString::fromStdString(text);
        const QString trimmed = line.trimmed();
        indent = line.left(line.indexOf(trimmed));
        const int equals = trimmed.indexOf(QLatin1Char('='));
        isPair = equals > 0 && !trimmed.startsWith(QLatin1Char(';')) && !trimmed.startsWith(QLatin1Char('['));
        keyword = isPair ? trimmed.left(equals).trimmed() : trimmed;
        value = isPair ? trimmed.mid(equals + 1).trimmed() : QString();
    }
    std::string line() const {
        const QString text = indent + keyword;
        const bool isText = keyword.startsWith(QLatin1Char(';')) || keyword.startsWith(QLatin1Char('['));
        return (isText || (value.isEmpty() && !isPair) ? text : text.leftJustified(KEYWORD_WIDTH) + " = " + value)
            .toStdString();
    }
};

/// A heading that would begin another section of the file.
bool isOtherSection(const QString & line) {
    const QString text = line.trimmed();
    return text.startsWith(QLatin1Char('[')) && text.endsWith(QLatin1Char(']')) &&
           MM::KeywordList::KeywordExists<MM::Material::Sections>(text.mid(1, text.size() - 2).trimmed().toStdString());
}

} // namespace

HygMaterialMeasuredTable::HygMaterialMeasuredTable(HygMaterialDocument & document, QObject * parent)
    : HygMaterialRowModel(parent), m_document(document) {
    m_rows = static_cast<int>(lines().size());
    connect(&m_document, &HygMaterialDocument::changed, this, &HygMaterialMeasuredTable::takeOver);
}

const std::vector<std::string> & HygMaterialMeasuredTable::lines() const {
    return m_document.material().m_measuredData.m_lines;
}

void HygMaterialMeasuredTable::takeOver() {
    const int rows = static_cast<int>(lines().size());
    if (rows == m_rows) {
        if (rows > 0)
            emit dataChanged(index(0, 0), index(rows - 1, NUM_COLUMNS - 1));
        return;
    }
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

void HygMaterialMeasuredTable::change(const QString & text, std::vector<std::string> lines) {
    // As the reader leaves them: without empty lines at the ends.
    const auto isBlank = [](const std::string & line) { return line.find_first_not_of(" \t") == std::string::npos; };
    while (!lines.empty() && isBlank(lines.back()))
        lines.pop_back();
    lines.erase(lines.begin(), std::find_if_not(lines.begin(), lines.end(), isBlank));
    m_document.change(text, [&](MM::Material & material) { material.m_measuredData.m_lines = std::move(lines); });
}

void HygMaterialMeasuredTable::insertAfter(int row) {
    std::vector<std::string> changed = lines();
    if (changed.size() >= MAX_LINES)
        return;
    const auto at = std::clamp<std::ptrdiff_t>(row + 1, 0, static_cast<std::ptrdiff_t>(changed.size()));
    changed.insert(changed.begin() + at, "  ; " + tr("new line").toStdString());
    change(tr("Insert line"), std::move(changed));
}

void HygMaterialMeasuredTable::removeEntries(const std::vector<int> & rows) {
    std::vector<std::string> changed;
    auto removed = rows.begin();
    for (int i = 0; i < m_rows; ++i) {
        if (removed != rows.end() && *removed == i)
            ++removed;
        else
            changed.push_back(lines()[static_cast<std::size_t>(i)]);
    }
    change(tr("Remove lines"), std::move(changed));
}

QString HygMaterialMeasuredTable::text() const {
    std::string all;
    for (const std::string & line : lines())
        all += line + '\n';
    return QString::fromStdString(all);
}

void HygMaterialMeasuredTable::setText(const QString & text) {
    std::vector<std::string> changed;
    for (const QString & line : text.split(QLatin1Char('\n'))) {
        if (isOtherSection(line))
            throw KOR::Exception(tr("Line %1 would begin another section of the file: '%2'.")
                                     .arg(changed.size() + 1)
                                     .arg(line.trimmed().left(80))
                                     .toStdString(),
                                 "[HygMaterialMeasuredTable::setText]");
        QString plain = line;
        plain.remove(QLatin1Char('\r')).remove(QChar());
        changed.push_back(plain.toStdString());
        if (changed.size() > MAX_LINES)
            throw KOR::Exception(tr("Measured data have at most %1 lines.").arg(MAX_LINES).toStdString(),
                                 "[HygMaterialMeasuredTable::setText]");
    }
    change(tr("Paste lines"), std::move(changed));
}

int HygMaterialMeasuredTable::rowCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int HygMaterialMeasuredTable::columnCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : static_cast<int>(NUM_COLUMNS);
}

QVariant HygMaterialMeasuredTable::data(const QModelIndex & index, int role) const {
    if (!index.isValid() || static_cast<std::size_t>(index.row()) >= lines().size())
        return {};
    const Parts parts(lines()[static_cast<std::size_t>(index.row())]);
    if (role == Qt::FontRole && parts.keyword.startsWith(QLatin1Char('['))) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    if (role == Qt::ForegroundRole && parts.keyword.startsWith(QLatin1Char(';')))
        return QGuiApplication::palette().color(QPalette::PlaceholderText);
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    if (index.column() == KeywordColumn)
        return parts.keyword;
    if (index.column() == ValueColumn)
        return parts.value;
    if (parts.isPair)
        for (const char * enumeration : ENUMERATIONS)
            if (MM::KeywordList::KeywordExists(enumeration, parts.keyword.toStdString())) {
                const auto unit = MM::KeywordList::Unit(
                    enumeration, MM::KeywordList::Enumeration(enumeration, parts.keyword.toStdString()));
                return HygMaterialTexts::unit(QString::fromUtf8(unit.data(), static_cast<int>(unit.size())));
            }
    return {};
}

QVariant HygMaterialMeasuredTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    const QString titles[] = {tr("Keyword or line"), tr("Value"), tr("Unit")};
    return titles[section];
}

Qt::ItemFlags HygMaterialMeasuredTable::flags(const QModelIndex & index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == UnitColumn ? flags : flags | Qt::ItemIsEditable;
}

bool HygMaterialMeasuredTable::setData(const QModelIndex & index, const QVariant & value, int role) {
    if (!index.isValid() || role != Qt::EditRole || index.column() == UnitColumn)
        return false;
    const QString text = value.toString().simplified();
    const auto row = static_cast<std::size_t>(index.row());
    Parts parts(lines()[row]);
    if (index.column() == ValueColumn) {
        parts.value = text;
    } else if (text.isEmpty() || isOtherSection(text)) {
        emit refused(text.isEmpty() ? tr("A line cannot be empty; remove it instead.")
                                    : tr("'%1' would begin another section of the file.").arg(text));
        return false;
    } else {
        parts.keyword = text;
    }
    std::vector<std::string> changed = lines();
    changed[row] = parts.line();
    if (changed[row] == lines()[row])
        return true;
    change(tr("Change line"), std::move(changed));
    return true;
}
