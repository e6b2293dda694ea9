#include "materials/HygMaterialNotice.h"

#include "document/HygProjectHandler.h"
#include "materials/HygProjectMaterialFiles.h"
#include "materials/HygProjectMaterialsWidget.h"

#include <QtExt/Palette.h>

#include <KOR/Exception.h>

#include <QEvent>

HygMaterialNotice::HygMaterialNotice(HygProjectHandler & projects, QWidget * parent)
    : QLabel(parent), m_projects(projects), m_files(HygProjectMaterialFiles::of(projects)) {
    setObjectName(QStringLiteral("materialNotice"));
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QLabel::linkActivated, this, &HygMaterialNotice::follow);
    connect(&m_files, &HygProjectMaterialFiles::changed, this, &HygMaterialNotice::update);
    update();
}

void HygMaterialNotice::setMaterials(std::set<std::string> names) {
    if (names == m_names)
        return;
    m_names = std::move(names);
    update();
}

void HygMaterialNotice::update() {
    const std::vector<QString> problems = m_files.problems();
    const QString sign = QtExt::Palette::color(QtExt::Palette::ERROR_TEXT).name();
    QStringList lines;
    for (std::size_t i = 0; i < problems.size(); ++i) {
        const std::string & name = m_projects.project().m_materials[i].m_name;
        if (!problems[i].isEmpty() && m_names.count(name) > 0)
            lines << QStringLiteral("<span style='color:%1'>⚠</span> %2: %3 &nbsp; <a href='%4'>%5</a>")
                         .arg(sign, QString::fromStdString(name).toHtmlEscaped(), problems[i].toHtmlEscaped())
                         .arg(i)
                         .arg(tr("choose another file"));
    }
    setText(lines.join(QStringLiteral("<br>")));
    setVisible(!lines.isEmpty());
}

void HygMaterialNotice::follow(const QString & link) {
    try {
        HygProjectMaterialsWidget::chooseOther(m_projects, link.toUInt(), window());
    } catch (const KOR::Exception & ex) {
        ex.report();
        emit refused(QString::fromUtf8(ex.what()));
    }
}

void HygMaterialNotice::changeEvent(QEvent * event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::PaletteChange)
        update();
}
