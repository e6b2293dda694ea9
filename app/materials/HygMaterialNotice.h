#pragma once

#include <QLabel>

#include <set>
#include <string>

class HygProjectHandler;
class HygProjectMaterialFiles;

/// Names the materials of the project whose files are missing or broken, each with a link to choose another one. Hidden
/// while there are none.
class HygMaterialNotice : public QLabel {
    Q_OBJECT
public:
    explicit HygMaterialNotice(HygProjectHandler & projects, QWidget * parent = nullptr);

    /// The materials that matter where it stands.
    void setMaterials(std::set<std::string> names);

signals:
    /// Why another file could not be chosen.
    void refused(const QString & message);

protected:
    void changeEvent(QEvent * event) override;

private:
    void update();
    void follow(const QString & link);

    HygProjectHandler & m_projects;
    HygProjectMaterialFiles & m_files;
    std::set<std::string> m_names;
};
