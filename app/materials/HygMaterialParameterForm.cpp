#include "materials/HygMaterialParameterForm.h"

#include "materials/HygMaterialDocument.h"
#include "materials/HygMaterialTexts.h"

#include <QtExt/ValueEdit.h>

#include <QEvent>

namespace {

using Foil = MM::VaporContactResistanceModel::Param;
using MM::Material;

constexpr int NUM_FOIL = static_cast<int>(Foil::SCALING_C_NEG) + 1;

/// Calls \p action with the enumerator of a field.
template <typename Kind, typename Action> auto withEnumerator(Kind kind, int index, const Action & action) {
    switch (static_cast<int>(kind)) {
    case 0:
        return action(static_cast<Material::ParaStorage>(index));
    case 1:
        return action(static_cast<Material::ParaTransport>(index));
    case 2:
        return action(static_cast<Material::ParaMechanical>(index));
    default:
        return action(static_cast<Foil>(index));
    }
}

const KOR::Parameter & held(const Material & material, Foil which) {
    return material.m_vaporContactResistance.parameter(which);
}
template <typename Para> const KOR::Parameter & held(const Material & material, Para which) {
    return material.parameter(which);
}

void put(Material & material, Foil which, const KOR::Parameter & given) {
    if (given.empty())
        material.m_vaporContactResistance.clearParameter(which);
    else
        material.m_vaporContactResistance.setParameter(which, given.value());
}
template <typename Para> void put(Material & material, Para which, const KOR::Parameter & given) {
    if (given.empty())
        material.clearParameter(which);
    else // by the reader, which keeps the unit
        material.readASCIIParameterFromLine(MM::KeywordList::Keyword(which) + " = " + given.valueText());
}

struct RangeRow {
    const char * keyword;
    const char * range;
};
// What is usual; directions v and w are as u.
// clang-format off
constexpr RangeRow RANGES[] = {
    {"RHO",           QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 15 to 2500 kg/m³, metals up to 8900 kg/m³")},
    {"CE",            QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 800 to 2500 J/(kg·K), metals from 380 J/(kg·K)")},
    {"THETA_POR",     QT_TRANSLATE_NOOP("HygMaterialParameterForm", "0.01 to 0.99 m³/m³, not below the effective saturation")},
    {"THETA_EFF",     QT_TRANSLATE_NOOP("HygMaterialParameterForm", "0.01 to 0.99 m³/m³, not above the porosity")},
    {"THETA_CAP",     QT_TRANSLATE_NOOP("HygMaterialParameterForm", "0.01 to 0.9 m³/m³, not above the effective saturation")},
    {"THETA_LIM_HYG", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "0 to 0.9 m³/m³")},
    {"THETA_80",      QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 0.0005 to 0.15 m³/m³")},
    {"LAMBDA",        QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 0.02 to 3 W/(m·K), metals up to 400 W/(m·K)")},
    {"LAMBDA_DESIGN", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 0.02 to 3 W/(m·K), metals up to 400 W/(m·K)")},
    {"AW",            QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 0.001 to 0.5 kg/(m²·√s)")},
    {"MEW",           QT_TRANSLATE_NOOP("HygMaterialParameterForm", "1 (still air) to 100000 (foils)")},
    {"SD",            QT_TRANSLATE_NOOP("HygMaterialParameterForm", "0.01 to 1500 m, for thin layers")},
    {"KLEFF",         QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 1e-12 to 1e-7 s")},
    {"DLEFF",         QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 1e-10 to 1e-4 m²/s")},
    {"KG",            QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 1e-12 to 1e-3 s")},
    {"ALPHA",         QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 0.003 to 0.2 mm/(m·K)")},
    {"BETA_THETA_L",  QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 0 to 0.5 m³·m/(m³·m)")},
    {"BETA_THETA_L2", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "usually 0.1 to 0.25 m³/m³")},
    {"WEIGHT_FACTOR_POS", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "0 to 1: the share of the side from which vapour comes; 0.5 if not given")},
    {"WEIGHT_FACTOR_NEG", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "0 to 1: the share of the side from which vapour comes; 0.5 if not given")},
    {"SCALING_A_POS", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "a of the factor a phi² + b phi + c; 0 if not given")},
    {"SCALING_B_POS", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "b of the factor a phi² + b phi + c; 0 if not given")},
    {"SCALING_C_POS", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "c of the factor a phi² + b phi + c; 1 if not given")},
    {"SCALING_A_NEG", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "a of the factor a phi² + b phi + c; 0 if not given")},
    {"SCALING_B_NEG", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "b of the factor a phi² + b phi + c; 0 if not given")},
    {"SCALING_C_NEG", QT_TRANSLATE_NOOP("HygMaterialParameterForm", "c of the factor a phi² + b phi + c; 1 if not given")},
};
// clang-format on

} // namespace

HygMaterialParameterForm::HygMaterialParameterForm(HygMaterialDocument & document, QWidget * parent)
    : HygMaterialForm(parent), m_document(document) {
    const auto all = [](Field::kind_t kind, std::size_t first, std::size_t last) {
        std::vector<Field> fields;
        for (std::size_t i = first; i < last; ++i)
            fields.push_back({kind, static_cast<int>(i)});
        return fields;
    };
    using Transport = Material::ParaTransport;
    constexpr std::size_t V = MM::indexOf(Transport::LAMBDA_V);
    constexpr std::size_t DESIGN = MM::indexOf(Transport::LAMBDA_DESIGN);
    std::vector<Field> transport = all(Field::Transport, 0, V);
    transport.push_back({Field::Transport, static_cast<int>(DESIGN)});
    addGroup(QT_TR_NOOP("Storage"), all(Field::Storage, 0, Material::NUM_STORAGE));
    addGroup(QT_TR_NOOP("Transport"), transport);
    addGroup(QT_TR_NOOP("Transport in directions v and w, where it differs"), all(Field::Transport, V, DESIGN));
    addGroup(QT_TR_NOOP("Mechanics"), all(Field::Mechanical, 0, Material::NUM_MECHANICAL));
    addGroup(QT_TR_NOOP("Adaptive foil: its resistance over humidity is a function"), all(Field::Foil, 0, NUM_FOIL));
    connect(&m_document, &HygMaterialDocument::changed, this, &HygMaterialParameterForm::update);
    retranslate();
    update();
}

void HygMaterialParameterForm::addGroup(const char * title, const std::vector<Field> & fields) {
    m_titles.emplace_back(&addHeading(), title);
    for (Field field : fields) {
        const auto [keyword, unit] = withEnumerator(field.kind, field.index, [](auto which) {
            return std::pair(MM::KeywordList::Keyword(which),
                             MM::KeywordList::Unit(KOR::enumerationName<decltype(which)>(), static_cast<int>(which)));
        });
        field.edit = new QtExt::ValueEdit(KOR::Parameter(keyword, 0, KOR::Unit(unit)), widget());
        field.edit->setEmptyAllowed(true);
        if (field.kind != Field::Foil || keyword.starts_with("WEIGHT"))
            field.edit->setMinimum(0, KOR::Unit(unit));
        if (keyword.starts_with("WEIGHT"))
            field.edit->setMaximum(1, KOR::Unit(unit));
        field.label = &addField(QString::fromStdString(keyword), field.edit);
        connect(field.edit, &QtExt::ValueEdit::valueChanged, this, [this, field] { take(field); });
        m_parameters.push_back(field);
    }
}

void HygMaterialParameterForm::take(const Field & field) {
    const KOR::Parameter given = field.edit->parameter();
    withEnumerator(field.kind, field.index, [&](auto which) {
        const std::string keyword = MM::KeywordList::Keyword(which);
        m_document.change(tr("Change %1").arg(QString::fromStdString(keyword)),
                          [&](Material & material) { put(material, which, given); });
    });
}

void HygMaterialParameterForm::update() {
    for (const Field & field : m_parameters)
        withEnumerator(field.kind, field.index, [&](auto which) {
            const KOR::Parameter & value = held(m_document.material(), which);
            if (field.edit->parameter() == value)
                return;
            if (!value.empty()) {
                field.edit->setParameter(value);
                return;
            }
            // Without a name it shows nothing, and a 0 that is typed is a new value.
            field.edit->setParameter(KOR::Parameter({}, 0, field.edit->unit()));
        });
}

void HygMaterialParameterForm::retranslate() {
    for (const auto & [label, title] : m_titles)
        label->setText(tr(title));
    for (const Field & field : m_parameters)
        withEnumerator(field.kind, field.index, [&](auto which) {
            const QString keyword = QString::fromStdString(MM::KeywordList::Keyword(which));
            const QString description = HygMaterialTexts::translated(MM::KeywordList::Description(which));
            QString toolTip = QStringLiteral("%1: %2").arg(keyword, description);
            QString stem = keyword;
            if (stem.endsWith(QStringLiteral("_V")) || stem.endsWith(QStringLiteral("_W")))
                stem.chop(2);
            for (const RangeRow & row : RANGES)
                if (stem == QLatin1String(row.keyword))
                    toolTip += QStringLiteral("; ") + tr(row.range);
            field.label->setText(description);
            field.edit->setToolTip(toolTip);
            field.edit->setAccessibleName(description);
            field.edit->setPlaceholderText(tr("not given"));
        });
}

void HygMaterialParameterForm::changeEvent(QEvent * event) {
    HygMaterialForm::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
