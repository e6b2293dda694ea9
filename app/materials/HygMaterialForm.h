#pragma once

#include <QLabel>
#include <QScrollArea>

#include <map>
#include <vector>

class QGridLayout;

/// Fields one below the other in groups, each with a place for what the check of the material says of it.
class HygMaterialForm : public QScrollArea {
    Q_OBJECT
public:
    explicit HygMaterialForm(QWidget * parent = nullptr);

    /// A heading above the fields that follow.
    QLabel & addHeading();
    /// \param keyword names the field for findings and, as object name, for tests
    /// \return the field's label
    QLabel & addField(const QString & keyword, QWidget * field);
    /// Shows texts below their fields, by keyword.
    void setFindings(const std::map<QString, QString> & findings);
    bool hasField(const QString & keyword) const { return m_fields.count(keyword) > 0; }
    /// Scrolls to a field and gives it the focus.
    void showField(const QString & keyword);
    void setFieldVisible(const QString & keyword, bool isVisible);

protected:
    void changeEvent(QEvent * event) override;

private:
    struct Field {
        QLabel * label;
        QWidget * field;
        QLabel * finding;
    };
    void updateColors();

    QGridLayout * m_grid;
    std::map<QString, Field> m_fields;
    std::vector<QLabel *> m_headings;
};
