#pragma once

#include <QTableView>
#include <QWidget>

#include <vector>

class HygMaterialRowModel;
class QBoxLayout;
class QToolButton;

/// A table of the material editor with its tools above it; the same keys work in all of them.
class HygMaterialTable : public QWidget {
    Q_OBJECT
public:
    /// \param name of the table, as object name
    HygMaterialTable(HygMaterialRowModel & rows, const QString & name, QWidget * parent = nullptr);

    QTableView & view() { return *m_view; }
    /// A button of the user's behind the others.
    void addTool(QToolButton * button);
    /// Which tools can be used now.
    void updateTools();

signals:
    /// What was pasted cannot be used.
    void refused(const QString & message);

protected:
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    struct ToolRow;
    static const ToolRow TOOLS[];

    void insertRow();
    void removeRows();
    void copyRows();
    void pasteRows();
    void retranslate();

    HygMaterialRowModel & m_rows;
    QTableView * m_view;
    QBoxLayout * m_bar;
    std::vector<QToolButton *> m_tools;
};
