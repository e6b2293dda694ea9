#include "materials/HygMaterialModelTable.h"

#include "materials/HygMaterialDocument.h"

#include <QtExt/Palette.h>

#include <KOR/Exception.h>
#include <KOR/Numbers.h>

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t MAX_MODES = 100; ///< as the model takes them
constexpr int MAX_VALUE = 10'000;      ///< [characters] as the reader takes them

/// What the reader takes for the keyword of a parameter.
bool isKeyword(const QString & text) {
    static const QRegularExpression WORD(QStringLiteral("^[A-Za-z][A-Za-z0-9_]{0,63}$"));
    return WORD.match(text).hasMatch() && text != QLatin1String("TYPE") && text != QLatin1String("FUNCTION");
}

std::size_t longest(const std::vector<std::vector<double>> & lists) {
    std::size_t length = 0;
    for (const std::vector<double> & list : lists)
        length = std::max(length, list.size());
    return length;
}

} // namespace

HygMaterialModelTable::HygMaterialModelTable(HygMaterialDocument & document, QObject * parent)
    : HygMaterialRowModel(parent), m_document(document) {
    connect(&m_document, &HygMaterialDocument::changed, this, &HygMaterialModelTable::takeOver);
}

const MM::ModelDataContainer & HygMaterialModelTable::model() const {
    static const MM::ModelDataContainer NONE;
    if (!m_place)
        return NONE;
    const auto places = HygMaterialModels::places(m_document.material());
    return std::find(places.begin(), places.end(), *m_place) == places.end()
               ? NONE
               : HygMaterialModels::model(m_document.material(), *m_place);
}

const HygMaterialModels::Row * HygMaterialModelTable::kind() const {
    return m_place ? HygMaterialModels::find(m_place->section, model().m_type) : nullptr;
}

void HygMaterialModelTable::setPlace(std::optional<HygMaterialModels::Place> place) {
    beginResetModel();
    m_place = place;
    readRows();
    endResetModel();
}

void HygMaterialModelTable::readRows() {
    m_modes.clear();
    m_keywords.clear();
    const HygMaterialModels::Row * known = kind();
    m_hasModes = known != nullptr && known->isList;
    if (m_hasModes) {
        for (const HygMaterialModels::Parameter & parameter : known->parameters) {
            m_modes.push_back(model().values(parameter.keyword));
            // A list that holds something else than numbers is mended as text.
            const std::string * text = model().find(parameter.keyword);
            m_hasModes = m_hasModes && (text == nullptr || !m_modes.back().empty());
        }
    }
    if (m_hasModes) {
        m_rows = static_cast<int>(longest(m_modes));
        return;
    }
    if (known != nullptr)
        for (const HygMaterialModels::Parameter & parameter : known->parameters)
            m_keywords.push_back(QLatin1String(parameter.keyword));
    for (const auto & [keyword, value] : model().m_parameters) {
        const QString name = QString::fromStdString(keyword);
        if (std::find(m_keywords.begin(), m_keywords.end(), name) == m_keywords.end())
            m_keywords.push_back(name);
    }
    const bool isOpen = !model().m_type.empty() && (known == nullptr || known->parameters.empty());
    m_rows = static_cast<int>(m_keywords.size()) + (isOpen ? 1 : 0);
}

void HygMaterialModelTable::takeOver() {
    beginResetModel();
    readRows();
    endResetModel();
}

bool HygMaterialModelTable::hasFreeRows() const {
    return m_hasModes;
}

void HygMaterialModelTable::changeModel(const QString & text, MM::ModelDataContainer changed) {
    m_document.change(text,
                      [&](MM::Material & material) { HygMaterialModels::set(material, *m_place, std::move(changed)); });
}

void HygMaterialModelTable::changeModes(const QString & text, const Modes & modes) {
    const HygMaterialModels::Row & known = *kind();
    MM::ModelDataContainer changed = model();
    for (std::size_t i = 0; i < modes.size(); ++i) {
        if (modes[i].empty())
            std::erase_if(changed.m_parameters,
                          [&](const auto & entry) { return entry.first == known.parameters[i].keyword; });
        else
            changed.set(known.parameters[i].keyword, KOR::joinNumbers(modes[i]));
    }
    if (known.count != nullptr)
        changed.set(known.count, KOR::toString(longest(modes)));
    changeModel(text, std::move(changed));
}

void HygMaterialModelTable::insertAfter(int row) {
    const HygMaterialModels::Row * known = kind();
    if (!m_hasModes || known == nullptr)
        return;
    const std::size_t count = longest(m_modes);
    if (count >= MAX_MODES) {
        emit refused(tr("A model has at most %1 modes.").arg(MAX_MODES));
        return;
    }
    Modes modes = m_modes;
    const auto at = static_cast<std::size_t>(std::clamp(row + 1, 0, static_cast<int>(count)));
    for (std::size_t i = 0; i < modes.size(); ++i) {
        modes[i].resize(count, known->first[i]);
        // A mode beside others begins without weight, so that the sum stays.
        const double value = i == 0 && count > 0 ? 0 : known->first[i];
        modes[i].insert(modes[i].begin() + static_cast<std::ptrdiff_t>(at), value);
    }
    changeModes(tr("Insert mode"), modes);
}

void HygMaterialModelTable::removeEntries(const std::vector<int> & rows) {
    if (!m_hasModes)
        return;
    Modes modes = m_modes;
    for (std::vector<double> & list : modes)
        for (auto row = rows.rbegin(); row != rows.rend(); ++row)
            if (*row < static_cast<int>(list.size()))
                list.erase(list.begin() + *row);
    changeModes(tr("Remove modes"), modes);
}

QString HygMaterialModelTable::text() const {
    QString lines;
    for (int row = 0; row < m_rows; ++row) {
        QStringList cells;
        for (int column = 0; column < columnCount(); ++column)
            cells << index(row, column).data().toString();
        lines += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return lines;
}

void HygMaterialModelTable::setText(const QString & text) {
    if (!m_hasModes)
        return;
    Modes modes(m_modes.size());
    const QStringList lines = text.left(MAX_VALUE).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QStringList values = parts(lines[i]);
        if (values.isEmpty())
            continue;
        for (std::size_t k = 0; k < modes.size(); ++k) {
            const auto value =
                k < static_cast<std::size_t>(values.size()) ? number(values[static_cast<int>(k)]) : std::nullopt;
            if (!value || values.size() != static_cast<int>(modes.size()))
                throw KOR::Exception(tr("Line %1 does not hold %2 numbers: '%3'.")
                                         .arg(i + 1)
                                         .arg(modes.size())
                                         .arg(lines[i].left(80))
                                         .toStdString(),
                                     "[HygMaterialModelTable::setText]");
            modes[k].push_back(*value);
        }
    }
    if (longest(modes) > MAX_MODES)
        throw KOR::Exception(tr("A model has at most %1 modes.").arg(MAX_MODES).toStdString(),
                             "[HygMaterialModelTable::setText]");
    changeModes(tr("Paste modes"), modes);
}

int HygMaterialModelTable::rowCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int HygMaterialModelTable::columnCount(const QModelIndex & parent) const {
    if (parent.isValid())
        return 0;
    return m_hasModes ? static_cast<int>(m_modes.size()) : static_cast<int>(NUM_COLUMNS);
}

QVariant HygMaterialModelTable::data(const QModelIndex & index, int role) const {
    if (!index.isValid() || index.row() >= m_rows)
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (m_hasModes) {
        const std::vector<double> & list = m_modes[column];
        const bool isMissing = row >= list.size();
        if (role == Qt::DisplayRole || role == Qt::EditRole)
            return isMissing ? QString() : shown(list[row]);
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
        if (isMissing && role == Qt::BackgroundRole)
            return QtExt::Palette::color(QtExt::Palette::ERROR_BASE);
        if (isMissing && role == Qt::ToolTipRole)
            return tr("A mode without this value is left out.");
        return {};
    }
    if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole)
        return {};
    const bool isNew = row >= m_keywords.size();
    const QString keyword = isNew ? QString() : m_keywords[row];
    switch (index.column()) {
    case KeywordColumn:
        return isNew && role != Qt::EditRole ? tr("(new parameter)") : keyword;
    case ValueColumn: {
        const std::string * value = isNew ? nullptr : model().find(keyword.toStdString());
        return value == nullptr ? QString() : QString::fromStdString(*value);
    }
    default:
        break;
    }
    if (const HygMaterialModels::Row * known = kind())
        for (const HygMaterialModels::Parameter & parameter : known->parameters)
            if (keyword == QLatin1String(parameter.keyword))
                return QStringLiteral("%1 [%2]").arg(HygMaterialModels::title(parameter),
                                                     HygMaterialModels::unit(parameter));
    return {};
}

QVariant HygMaterialModelTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    if (!m_hasModes) {
        const QString titles[] = {tr("Parameter"), tr("Value"), tr("Meaning")};
        return titles[section];
    }
    const HygMaterialModels::Row * known = kind();
    if (known == nullptr || section >= static_cast<int>(known->parameters.size()))
        return {};
    const HygMaterialModels::Parameter & parameter = known->parameters[static_cast<std::size_t>(section)];
    return QStringLiteral("%1 [%2]").arg(HygMaterialModels::title(parameter), HygMaterialModels::unit(parameter));
}

Qt::ItemFlags HygMaterialModelTable::flags(const QModelIndex & index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const bool isNew = !m_hasModes && index.row() >= static_cast<int>(m_keywords.size());
    const bool isEditable = m_hasModes || (isNew ? index.column() == KeywordColumn : index.column() == ValueColumn);
    return isEditable ? flags | Qt::ItemIsEditable : flags;
}

bool HygMaterialModelTable::setData(const QModelIndex & index, const QVariant & value, int role) {
    if (!index.isValid() || role != Qt::EditRole)
        return false;
    const QString text = value.toString().trimmed();
    if (!m_hasModes)
        return index.column() == KeywordColumn ? setKeyword(index.row(), text) : setValue(index.row(), text);
    const auto given = number(text);
    if (!given) {
        emit refused(tr("'%1' is not a number.").arg(text));
        return false;
    }
    Modes modes = m_modes;
    std::vector<double> & list = modes[static_cast<std::size_t>(index.column())];
    const auto row = static_cast<std::size_t>(index.row());
    // What is missing before the value is filled up, since the list knows no holes.
    if (row >= list.size())
        list.resize(row + 1, *given);
    list[row] = *given;
    changeModes(tr("Change mode"), modes);
    return true;
}

bool HygMaterialModelTable::setKeyword(int, const QString & keyword) {
    if (keyword.isEmpty())
        return false;
    if (!isKeyword(keyword) || model().find(keyword.toStdString()) != nullptr) {
        emit refused(tr("'%1' cannot be the name of a new parameter.").arg(keyword));
        return false;
    }
    MM::ModelDataContainer changed = model();
    changed.set(keyword.toStdString(), "0");
    changeModel(tr("Add parameter %1").arg(keyword), std::move(changed));
    return true;
}

bool HygMaterialModelTable::setValue(int row, const QString & value) {
    if (value.size() > MAX_VALUE || value.contains(QLatin1Char('\n'))) {
        emit refused(tr("The value is too long, or more than one line."));
        return false;
    }
    const QString keyword = m_keywords[static_cast<std::size_t>(row)];
    MM::ModelDataContainer changed = model();
    if (value.isEmpty()) {
        std::erase_if(changed.m_parameters, [&](const auto & entry) { return entry.first == keyword.toStdString(); });
    } else {
        QString text = value;
        if (number(text)) // a comma typed as decimal mark
            text.replace(QLatin1Char(','), QLatin1Char('.'));
        changed.set(keyword.toStdString(), text.toStdString());
    }
    changeModel(tr("Change %1").arg(keyword), std::move(changed));
    return true;
}
