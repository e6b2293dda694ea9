#include "HygInitForm.h"

#include "HygCoreMessages.h"
#include "HygFormat.h"
#include "HygIconEngine.h"
#include "HygInitTexts.h"
#include "document/HygProjectHandler.h"
#include "undo/HygUndoSections.h"

#include <HYGRION/Defaults.h>
#include <QtExt/Palette.h>
#include <QtExt/ValueEdit.h>

#include <KOR/Exception.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFileDialog>
#include <QFocusEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSpinBox>
#include <QToolButton>
#include <QToolTip>
#include <QUndoStack>

using HYGRION::Init;
using HYGRION::Interval;
using HYGRION::KeywordList;
using HYGRION::SolverSettings;

namespace {

constexpr int REFUSAL_MS = 8000; ///< how long it is told why a text was not taken

constexpr auto INIT = [](auto & init) -> auto & {
    return init;
};
constexpr auto THE_INTERVAL = [](auto & init) -> auto & {
    return init.m_interval;
};
constexpr auto SOLVER = [](auto & init) -> auto & {
    return init.m_solverSettings;
};

QString translated(const char * text) {
    return QCoreApplication::translate("HygInitTexts", text);
}
QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/// The row of defaults and limits; nothing for what is unset unless it is given.
const HYGRION::DefaultRow * defaultRow(std::string_view category, std::string_view keyword) {
    for (const HYGRION::DefaultRow & row : HYGRION::defaults())
        if (row.category == category && row.keyword == keyword)
            return &row;
    return nullptr;
}

std::string_view categoryOf(HygInitForm::kind_t kind) {
    switch (kind) {
    case HygInitForm::PARAMETER:
        return KeywordList::category<Init::para_t>();
    case HygInitForm::INITIAL_STATE:
        return KeywordList::category<Init::defaultInitialCondition_t>();
    case HygInitForm::INTERVAL:
        return KeywordList::category<Interval::para_t>();
    case HygInitForm::SOLVER_PARAMETER:
        return KeywordList::category<SolverSettings::para_t>();
    case HygInitForm::INTEGER:
        return KeywordList::category<Init::intpara_t>();
    case HygInitForm::FLAG:
        return KeywordList::category<Init::flag_t>();
    case HygInitForm::SOLVER_FLAG:
        return KeywordList::category<SolverSettings::flag_t>();
    default:
        return {};
    }
}

/// "12.5 mm"; a unit that stands for none is left out.
QString valueText(double value, std::string_view unit) {
    constexpr int DIGITS = 12;
    return HygFormat::value(value, toQString(unit), DIGITS);
}

/// A text that stands for a part of the section. Reading throws what cannot be used.
struct TextRow {
    const char * name;
    QString (*read)(const Init & init);
    void (*write)(Init & init, const QString & text);
};

QString modulesText(const std::vector<Init::Module> & modules) {
    QStringList names;
    for (const Init::Module & module : modules)
        names << QString::fromStdString(module.m_overrides ? module.m_name + " = " + *module.m_overrides
                                                           : module.m_name);
    return names.join(QStringLiteral(", "));
}
std::vector<Init::Module> modulesOf(const QString & text) {
    std::vector<Init::Module> modules;
    for (const QString & part : text.split(',', Qt::SkipEmptyParts)) {
        const QStringList sides = part.split('=');
        Init::Module & module = modules.emplace_back();
        module.m_name = sides[0].trimmed().toStdString();
        if (sides.size() > 1)
            module.m_overrides = sides[1].trimmed().toStdString();
        if (module.m_name.empty() || sides.size() > 2 || (module.m_overrides && module.m_overrides->empty()))
            throw KOR::Exception(KOR::text("'%1' is no module.", part.trimmed().toStdString()), "[HygInitForm]");
    }
    return modules;
}
QString mappingText(const Init & init) {
    QStringList parts;
    for (const auto & mapping : init.m_modelSettingsVOC.m_materialMapping)
        parts << QString::fromStdString(mapping.m_material + "==" + mapping.m_voc);
    return parts.join(QStringLiteral(", "));
}
void setMapping(Init & init, const QString & text) {
    auto & mappings = init.m_modelSettingsVOC.m_materialMapping;
    mappings.clear();
    for (const QString & part : text.split(',', Qt::SkipEmptyParts)) {
        const QStringList sides = part.split(QStringLiteral("=="));
        if (sides.size() != 2 || sides[0].trimmed().isEmpty() || sides[1].trimmed().isEmpty())
            throw KOR::Exception(KOR::text("Invalid format of value'%1' for 'MaterialMapping' parameter, expected == "
                                           "separator.",
                                           part.trimmed().toStdString()),
                                 "[HygInitForm]");
        mappings.push_back({sides[0].trimmed().toStdString(), sides[1].trimmed().toStdString()});
    }
}
QString speciesText(const Init & init) {
    QStringList ids;
    for (const std::string & id : init.m_modelSettingsSalt.m_saltSpeciesIDs)
        ids << QString::fromStdString(id);
    return ids.join(' ');
}
void setSpecies(Init & init, const QString & text) {
    init.m_modelSettingsSalt.m_saltSpeciesIDs.clear();
    for (const QString & id : QString(text).replace(',', ' ').split(' ', Qt::SkipEmptyParts))
        init.m_modelSettingsSalt.m_saltSpeciesIDs.push_back(id.toStdString());
}

// clang-format off
constexpr TextRow TEXTS[] = {
    {"FluxModules",         [](const Init & i) { return modulesText(i.m_fluxModules); },
                            [](Init & i, const QString & t) { i.m_fluxModules = modulesOf(t); }},
    {"SourceModules",       [](const Init & i) { return modulesText(i.m_sourceModules); },
                            [](Init & i, const QString & t) { i.m_sourceModules = modulesOf(t); }},
    {"ClimateDataFilePath", [](const Init & i) { return QString::fromStdString(i.m_climateDataFilePath.str()); },
                            [](Init & i, const QString & t) { i.m_climateDataFilePath = KOR::Path(t.toStdString()); }},
    {"SaltDatabase",        [](const Init & i) { return QString::fromStdString(i.m_modelSettingsSalt.m_saltDatabase.str()); },
                            [](Init & i, const QString & t) { i.m_modelSettingsSalt.m_saltDatabase = KOR::Path(t.toStdString()); }},
    {"SaltSpeciesIDs",      speciesText, setSpecies},
    {"VOCDatabase",         [](const Init & i) { return QString::fromStdString(i.m_modelSettingsVOC.m_vocDatabase.str()); },
                            [](Init & i, const QString & t) { i.m_modelSettingsVOC.m_vocDatabase = KOR::Path(t.toStdString()); }},
    {"VOCID",               [](const Init & i) { return QString::fromStdString(i.m_modelSettingsVOC.m_vocID); },
                            [](Init & i, const QString & t) { i.m_modelSettingsVOC.m_vocID = t.trimmed().toStdString(); }},
    {"MaterialMapping",     mappingText, setMapping},
};
// clang-format on
static_assert(std::size(TEXTS) == HygInitForm::VOC_MAPPING + 1, "text table and enumeration disagree");

/// Texts of the items of a choice.
QString choiceText(std::string_view keyword) {
    for (const HygInitTexts::ChoiceRow & row : HygInitTexts::CHOICES)
        if (row.keyword == keyword)
            return translated(row.label);
    return toQString(keyword);
}

} // namespace

HygInitForm::HygInitForm(std::span<const Row> rows, HygProjectHandler & projects, QWidget * parent)
    : QWidget(parent), m_projects(projects) {
    auto * layout = new QVBoxLayout(this);
    QFormLayout * form = nullptr;
    for (const Row & row : rows) {
        if (row.kind == HEADING) {
            auto * group = new QGroupBox(this);
            m_groups.emplace_back(&row, group);
            form = new QFormLayout(group);
            form->setHorizontalSpacing(16);
            layout->addWidget(group);
            continue;
        }
        Field field = makeField(row);
        field.row = &row;
        field.editor->setObjectName(objectName(row));
        QWidget * container = row.kind == FILE_PATH ? withBrowseButton(field.editor, row) : field.editor;
        if (qobject_cast<QCheckBox *>(field.editor) != nullptr) {
            form->addRow(container);
        } else {
            field.label = new QLabel(this);
            field.label->setBuddy(field.editor);
            form->addRow(field.label, container);
        }
        // The wheel scrolls the page; it changes a value only where the user has put the focus.
        field.editor->installEventFilter(this);
        if (qobject_cast<QComboBox *>(field.editor) != nullptr || qobject_cast<QSpinBox *>(field.editor) != nullptr)
            field.editor->setFocusPolicy(Qt::StrongFocus);
        m_fields.push_back(std::move(field));
    }
    layout->addStretch(1);

    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const auto changed = [this, i] { push(i); };
        QWidget * editor = m_fields[i].editor;
        if (auto * value = qobject_cast<QtExt::ValueEdit *>(editor))
            connect(value, &QtExt::ValueEdit::valueChanged, this, changed);
        else if (auto * line = qobject_cast<QLineEdit *>(editor))
            connect(line, &QLineEdit::editingFinished, this, changed);
        else if (auto * flag = qobject_cast<QCheckBox *>(editor))
            connect(flag, &QCheckBox::toggled, this, changed);
        else if (auto * choice = qobject_cast<QComboBox *>(editor))
            connect(choice, qOverload<int>(&QComboBox::currentIndexChanged), this, changed);
        else if (auto * number = qobject_cast<QSpinBox *>(editor))
            connect(number, qOverload<int>(&QSpinBox::valueChanged), this, changed);
    }
    connect(&m_projects, &HygProjectHandler::modified, this, [this](int code) {
        if (code == HygModification::SolverSettingsModified || code == HygModification::ProjectDataModified ||
            code == HygModification::LocationModified || code == HygModification::ProjectReplaced)
            load();
    });
    connect(&m_projects, &HygProjectHandler::projectFileChanged, this, &HygInitForm::load);
    retranslate();
    load();
}

QString HygInitForm::objectName(const Row & row) {
    switch (row.kind) {
    case HEADING:
        return {};
    case BALANCES:
        return QStringLiteral("BalanceEquationModule");
    case CONDUCTIVITY:
        return QStringLiteral("LambdaSelection");
    case INTEGRATOR:
        return QStringLiteral("Integrator");
    case LINEAR_SOLVER:
        return QStringLiteral("LESSolver");
    case PRECONDITIONER:
        return QStringLiteral("Preconditioner");
    case TEXT:
    case FILE_PATH:
        return QLatin1String(TEXTS[row.index].name);
    default:
        return QString::fromStdString(KeywordList::Keyword(categoryOf(row.kind), row.index));
    }
}

HygInitForm::Field HygInitForm::makeField(const Row & row) {
    switch (row.kind) {
    case INTEGER:
        return makeInteger(row);
    case FLAG:
    case SOLVER_FLAG:
        return makeFlag(row);
    case CONDUCTIVITY:
        return makeChoice<Init::lambdaSelection_t>(
            row, [](auto & i) -> auto & { return i.m_lambdaSelection; });
    case INTEGRATOR:
        return makeChoice<SolverSettings::integrator_t>(
            row, [](auto & i) -> auto & { return i.m_solverSettings.m_integrator; });
    case LINEAR_SOLVER:
        return makeChoice<SolverSettings::lesSolver_t>(
            row, [](auto & i) -> auto & { return i.m_solverSettings.m_lesSolver; });
    case PRECONDITIONER:
        return makeChoice<SolverSettings::precond_t>(
            row, [](auto & i) -> auto & { return i.m_solverSettings.m_precond; });
    case BALANCES:
        return makeChoice<Init::balanceEquationModule_t>(
            row, [](auto & i) -> auto & { return i.m_balanceEquationModule; });
    case TEXT:
    case FILE_PATH:
        return makeText(row);
    default:
        return makeValue(row);
    }
}

HygInitForm::Field HygInitForm::makeValue(const Row & row) {
    switch (row.kind) {
    case PARAMETER:
        return makeValueOf<Init::para_t>(row, INIT, &Init::m_para);
    case INITIAL_STATE:
        return makeValueOf<Init::defaultInitialCondition_t>(row, INIT, &Init::m_defaultInitialCondition);
    case INTERVAL:
        return makeValueOf<Interval::para_t>(row, THE_INTERVAL, &Interval::m_para);
    default:
        return makeValueOf<SolverSettings::para_t>(row, SOLVER, &SolverSettings::m_para);
    }
}

template <typename Enum, typename Set, typename Owner>
HygInitForm::Field HygInitForm::makeValueOf(const Row & row, Owner owner, Set set) {
    const auto key = static_cast<Enum>(row.index);
    const std::string keyword = KeywordList::Keyword(key);
    const HYGRION::DefaultRow * byDefault = defaultRow(KeywordList::category<Enum>(), keyword);
    const KOR::Unit unit(byDefault != nullptr ? byDefault->unit : KeywordList::Unit(key));
    auto * edit =
        new QtExt::ValueEdit(KOR::Parameter(keyword, byDefault != nullptr ? byDefault->value : 0, unit), this);
    edit->setEmptyAllowed(true);
    if (byDefault != nullptr) {
        edit->setPlaceholderText(valueText(byDefault->value, byDefault->unit));
        const bool isAboveZero = byDefault->min == HYGRION::ABOVE_ZERO;
        edit->setMinimum(isAboveZero ? 0 : byDefault->min, unit, isAboveZero);
        if (byDefault->max < HYGRION::UNLIMITED)
            edit->setMaximum(byDefault->max, unit);
    } else {
        edit->setMinimum(0, unit, keyword == KeywordList::Keyword(Interval::para_t::Duration));
    }
    Field field;
    field.editor = edit;
    field.show = [=](const Init & init) {
        const KOR::Parameter * given = (owner(init).*set).find(key);
        // Without a value the unit still has to be known.
        edit->setParameter(given != nullptr ? *given : KOR::Parameter({}, 0, unit));
    };
    field.take = [=](Init & init) {
        KOR::Parameter value = edit->parameter();
        if (value.empty())
            return (owner(init).*set).erase(key);
        value.set_name(keyword);
        (owner(init).*set).insert(key, value);
    };
    return field;
}

HygInitForm::Field HygInitForm::makeInteger(const Row & row) {
    const auto key = static_cast<Init::intpara_t>(row.index);
    const HYGRION::DefaultRow & limits =
        HYGRION::defaultOf(KeywordList::category<Init::intpara_t>(), KeywordList::Keyword(key));
    auto * box = new QSpinBox(this);
    box->setRange(static_cast<int>(limits.min), static_cast<int>(limits.max));
    box->setKeyboardTracking(false);
    Field field;
    field.editor = box;
    field.show = [=](const Init & init) { box->setValue(init.intParameter(key)); };
    field.take = [=](Init & init) { init.m_intPara.set(key, box->value()); };
    return field;
}

HygInitForm::Field HygInitForm::makeFlag(const Row & row) {
    auto * box = new QCheckBox(this);
    Field field;
    field.editor = box;
    if (row.kind == SOLVER_FLAG) {
        const auto key = static_cast<SolverSettings::flag_t>(row.index);
        field.show = [=](const Init & init) { box->setChecked(init.m_solverSettings.isEnabled(key)); };
        field.take = [=](Init & init) { init.m_solverSettings.m_flag.set(key, box->isChecked()); };
    } else {
        const auto key = static_cast<Init::flag_t>(row.index);
        field.show = [=](const Init & init) { box->setChecked(init.isEnabled(key)); };
        field.take = [=](Init & init) { init.m_flag.set(key, box->isChecked()); };
    }
    return field;
}

template <typename Enum, typename Owner> HygInitForm::Field HygInitForm::makeChoice(const Row &, Owner owner) {
    auto * box = new QComboBox(this);
    for (int i = 0; i < KeywordList::count<Enum>(); ++i)
        box->addItem(QString(), QString::fromStdString(KeywordList::Keyword(static_cast<Enum>(i))));
    const std::string byDefault = KeywordList::Keyword(HYGRION::defaultChoice<Enum>());
    Field field;
    field.editor = box;
    field.show = [=](const Init & init) {
        const auto & given = owner(init);
        std::string keyword = byDefault;
        if constexpr (requires { given.has_value(); }) {
            if (given)
                keyword = KeywordList::Keyword(*given);
        } else if (!given.empty()) {
            keyword = given;
        }
        // A keyword that nobody knows stays what it is: without a selection nothing is taken.
        box->setCurrentIndex(box->findData(QString::fromStdString(keyword)));
    };
    field.take = [=](Init & init) {
        if (box->currentIndex() < 0)
            return;
        auto & given = owner(init);
        if constexpr (requires { given.has_value(); })
            given = static_cast<Enum>(box->currentIndex());
        else
            given = box->currentData().toString().toStdString();
    };
    field.retranslate = [=] {
        for (int i = 0; i < box->count(); ++i)
            box->setItemText(i, choiceText(box->itemData(i).toString().toStdString()));
    };
    return field;
}

HygInitForm::Field HygInitForm::makeText(const Row & row) {
    auto * edit = new QLineEdit(this);
    const TextRow & text = TEXTS[row.index];
    Field field;
    field.editor = edit;
    field.show = [edit, &text](const Init & init) {
        edit->setText(text.read(init));
        edit->setPalette({});
    };
    field.take = [edit, &text](Init & init) { text.write(init, edit->text()); };
    return field;
}

QWidget * HygInitForm::withBrowseButton(QWidget * editor, const Row & row) {
    auto * container = new QWidget(this);
    auto * line = new QHBoxLayout(container);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(4);
    auto * button = new QToolButton(container);
    button->setIcon(HygIconEngine::icon(QStringLiteral("folder")));
    button->setObjectName(objectName(row) + QStringLiteral("Browse"));
    line->addWidget(editor, 1);
    line->addWidget(button);
    connect(button, &QToolButton::clicked, this, [this, edit = static_cast<QLineEdit *>(editor), &row] {
        const HYGRION::Project & project = m_projects.project();
        const QString present = QString::fromStdString(project.resolved(KOR::Path(edit->text().toStdString())).str());
        const QString chosen = QFileDialog::getOpenFileName(this, translated(row.label), present);
        if (chosen.isEmpty())
            return;
        edit->setText(
            QString::fromStdString(KOR::Path(chosen.toStdString()).withPlaceholder(project.placeholders()).str()));
        emit edit->editingFinished();
    });
    return container;
}

void HygInitForm::push(std::size_t index) {
    if (m_isLoading || !m_projects.hasProject())
        return;
    const Field & field = m_fields[index];
    Init changed = m_projects.project().m_init;
    try {
        field.take(changed);
    } catch (const KOR::Exception & ex) {
        const QString reason = HygCoreMessages::translated(QString::fromUtf8(ex.what()));
        if (!field.editor->hasFocus()) {
            load();
            return tellRefusal(field.editor, reason);
        }
        QPalette colours;
        colours.setColor(QPalette::Base, QtExt::Palette::color(QtExt::Palette::ERROR_BASE));
        field.editor->setPalette(colours);
        field.editor->setToolTip(reason);
        return;
    }
    field.editor->setToolTip(toolTip(*field.row));
    if (changed == m_projects.project().m_init)
        return load();
    const QString text = tr("Change of '%1'").arg(translated(field.row->label).remove(':'));
    std::unique_ptr<HygUndoCommandBase> command;
    Init others = changed;
    others.m_solverSettings = m_projects.project().m_init.m_solverSettings;
    if (others == m_projects.project().m_init)
        command = std::make_unique<HygUndoSolverSettings>(text, changed.m_solverSettings);
    else
        command = std::make_unique<HygUndoInit>(text, std::move(changed));
    command->setField(objectName(*field.row));
    m_projects.undoStack().push(command.release());
}

void HygInitForm::load() {
    setEnabled(m_projects.hasProject());
    if (!m_projects.hasProject())
        return;
    m_isLoading = true;
    for (const Field & field : m_fields)
        field.show(m_projects.project().m_init);
    m_isLoading = false;
}

/// What is in force and what is shown are the same again; the reason stands at the field.
void HygInitForm::tellRefusal(QWidget * editor, const QString & reason) {
    QToolTip::showText(editor->mapToGlobal(QPoint(0, editor->height())),
                       tr("%1 The value before is in force.").arg(reason), editor, {}, REFUSAL_MS);
}

bool HygInitForm::eventFilter(QObject * watched, QEvent * event) {
    if (auto * edit = qobject_cast<QtExt::ValueEdit *>(watched);
        edit != nullptr && event->type() == QEvent::FocusOut && !edit->isValid()) {
        const auto reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            const QString error = edit->errorText();
            edit->restore();
            tellRefusal(edit, error);
        }
    }
    if (event->type() == QEvent::Wheel && !static_cast<QWidget *>(watched)->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

QString HygInitForm::toolTip(const Row & row) {
    QStringList lines{translated(row.toolTip)};
    const HYGRION::DefaultRow * limits =
        categoryOf(row.kind).empty() || row.kind == FLAG || row.kind == SOLVER_FLAG
            ? nullptr
            : defaultRow(categoryOf(row.kind), KeywordList::Keyword(categoryOf(row.kind), row.index));
    if (limits != nullptr) {
        lines << tr("Default: %1").arg(valueText(limits->value, limits->unit));
        const bool hasMin = limits->min > -HYGRION::UNLIMITED;
        const bool hasMax = limits->max < HYGRION::UNLIMITED;
        const QString min =
            limits->min == HYGRION::ABOVE_ZERO ? tr("more than 0") : valueText(limits->min, limits->unit);
        if (hasMin && hasMax)
            lines << tr("Allowed: %1 to %2").arg(min, valueText(limits->max, limits->unit));
        else if (hasMin)
            lines << tr("Allowed: from %1").arg(min);
    }
    return lines.join('\n');
}

void HygInitForm::retranslate() {
    for (QToolButton * button : findChildren<QToolButton *>(QRegularExpression(QStringLiteral("Browse$")))) {
        button->setToolTip(tr("Choose a file"));
        button->setAccessibleName(tr("Choose a file"));
    }
    for (const auto & [row, group] : m_groups)
        group->setTitle(translated(row->label));
    int widest = 0; // so that the fields of all groups begin at the same place
    for (const Field & field : m_fields) {
        if (field.label == nullptr)
            continue;
        field.label->setMinimumWidth(0);
        field.label->setText(translated(field.row->label));
        widest = std::max(widest, field.label->sizeHint().width());
    }
    for (const Field & field : m_fields) {
        if (field.label != nullptr)
            field.label->setMinimumWidth(widest);
        else
            static_cast<QCheckBox *>(field.editor)->setText(translated(field.row->label));
        field.editor->setToolTip(toolTip(*field.row));
        field.editor->setAccessibleName(translated(field.row->label).remove(':'));
        if (field.retranslate)
            field.retranslate();
    }
}

void HygInitForm::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
