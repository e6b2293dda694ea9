#pragma once

#include <QWidget>

#include <map>

class HygMessageBar;
class HygOutputModel;
class HygProjectHandler;
class QAction;
class QLabel;
class QListWidget;
class QTableView;

/// The view of the outputs: what the solver writes, of which places and when.
class HygOutputsView : public QWidget {
    Q_OBJECT
public:
    explicit HygOutputsView(HygProjectHandler * projects, QWidget * parent = nullptr);

public slots:
    /// The outputs that most engineers look at first; in one step of undo.
    void addStandard();

protected:
    void changeEvent(QEvent * event) override;

private:
    struct ActionRow;
    static const ActionRow ACTIONS[];

    void setUpActions();
    void retranslate();
    void update();
    void updateActions();
    /// Row of the table or of the list of schedules; -1 without a choice.
    int currentOutput() const;
    int currentSchedule() const;
    void selectDefinition(int kind, const QString & name);

    void newOutput();
    void editOutput();
    void duplicateOutput();
    void removeOutputs();
    void newSchedule();
    void editSchedule();
    void removeSchedule();
    /// Pushes what \p change pushes as one step of undo; what it refuses is shown.
    template <typename Change> void attempt(const QString & text, const Change & change);

    HygProjectHandler & m_projects;
    std::map<QString, QAction *> m_actions;
    HygMessageBar * m_message;
    HygOutputModel * m_model;
    QTableView * m_table;
    QLabel * m_empty;
    QLabel * m_scheduleTitle;
    QListWidget * m_schedules;
};
