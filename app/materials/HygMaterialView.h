#pragma once

#include <QWidget>

class HygMaterialDBWidget;
class HygProjectHandler;
class HygProjectMaterialsWidget;

/// The view of the materials: those of the project beside those of the database. It is made when it is first shown, so
/// that the start of the program does not wait for it.
class HygMaterialView : public QWidget {
    Q_OBJECT
public:
    explicit HygMaterialView(HygProjectHandler * projects, QWidget * parent = nullptr);

    /// Selects a material of the database.
    void showMaterial(const QString & path);

protected:
    void showEvent(QShowEvent * event) override;

private:
    void setUp();
    void activate(const QString & path);

    HygProjectHandler & m_projects;
    HygMaterialDBWidget * m_database = nullptr;
    HygProjectMaterialsWidget * m_project = nullptr;
};
