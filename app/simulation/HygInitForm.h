#pragma once

#include <HYGRION/Init.h>

#include <QWidget>

#include <functional>
#include <span>
#include <vector>

class HygProjectHandler;
class QGroupBox;
class QLabel;

/// A form over the Init section of the project, built from a table. It shows what is in force: what the project does not
/// give stands there as the default. Every change is pushed as an undo command.
class HygInitForm : public QWidget {
    Q_OBJECT
public:
    /// What a row edits.
    enum kind_t {
        HEADING,
        PARAMETER,        ///< Init::para_t
        INITIAL_STATE,    ///< Init::defaultInitialCondition_t
        INTERVAL,         ///< Interval::para_t
        SOLVER_PARAMETER, ///< SolverSettings::para_t
        INTEGER,          ///< Init::intpara_t
        FLAG,             ///< Init::flag_t
        SOLVER_FLAG,      ///< SolverSettings::flag_t
        BALANCES,         ///< Init::balanceEquationModule_t
        CONDUCTIVITY,     ///< Init::lambdaSelection_t
        INTEGRATOR,
        LINEAR_SOLVER,
        PRECONDITIONER,
        TEXT,     ///< see text_t
        FILE_PATH ///< see text_t
    };
    /// What has no keyword; the index of TEXT and FILE_PATH.
    enum text_t {
        FLUX_MODULES,
        SOURCE_MODULES,
        CLIMATE_FILE,
        SALT_DATABASE,
        SALT_SPECIES,
        VOC_DATABASE,
        VOC_ID,
        VOC_MAPPING
    };
    struct Row {
        kind_t kind;
        int index; ///< within the enumeration of the kind
        const char * label;
        const char * toolTip;
    };

    HygInitForm(std::span<const Row> rows, HygProjectHandler & projects, QWidget * parent = nullptr);

    /// What an editor's object name is: the keyword, or the name of what has none.
    static QString objectName(const Row & row);

protected:
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    struct Field {
        const Row * row = nullptr;
        QWidget * editor = nullptr;
        QLabel * label = nullptr;                        ///< none for switches
        std::function<void(const HYGRION::Init &)> show; ///< the section in the editor
        std::function<void(HYGRION::Init &)> take;       ///< the editor into the section; throws what cannot be taken
        std::function<void()> retranslate;               ///< texts within the editor, if any
    };

    Field makeField(const Row & row);
    Field makeValue(const Row & row);
    template <typename Enum, typename Set, typename Owner> Field makeValueOf(const Row & row, Owner owner, Set set);
    Field makeInteger(const Row & row);
    Field makeFlag(const Row & row);
    template <typename Enum, typename Owner> Field makeChoice(const Row & row, Owner owner);
    Field makeText(const Row & row);
    QWidget * withBrowseButton(QWidget * editor, const Row & row);
    void push(std::size_t field);
    void tellRefusal(QWidget * editor, const QString & reason);
    void load();
    void retranslate();
    static QString toolTip(const Row & row);

    HygProjectHandler & m_projects;
    std::vector<Field> m_fields;
    std::vector<std::pair<const Row *, QGroupBox *>> m_groups;
    bool m_isLoading = false;
};
