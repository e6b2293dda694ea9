#include "HygSimulationRunRequestDialog.h"

#include "HygFormat.h"
#include "HygIconEngine.h"

#include <KOR/Time.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QCommandLinkButton>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

namespace {
constexpr int INDENT = 36; ///< [px], below the text of a button
} // namespace

HygSimulationRunRequestDialog::HygSimulationRunRequestDialog(std::optional<double> restartTime, bool clear,
                                                             QWidget * parent)
    : QDialog(parent), m_clear(new QCheckBox(tr("Clear result directory before starting simulation"), this)) {
    setObjectName(QStringLiteral("HygSimulationRunRequestDialog"));
    setWindowTitle(tr("Start simulation"));
    auto * layout = new QVBoxLayout(this);
    auto * question = new QLabel(tr("For this project exist already some output files."), this);
    question->setObjectName(QStringLiteral("question"));
    layout->addWidget(question);

    auto * start = new QCommandLinkButton(tr("Start Solver"),
                                          tr("Restart simulation from begin, overwriting existing files."), this);
    start->setObjectName(QStringLiteral("pushButtonStart"));
    start->setIcon(HygIconEngine::icon(QStringLiteral("simulation")));
    auto * resume =
        new QCommandLinkButton(tr("Continue"), tr("Continue simulation from last output time point."), this);
    resume->setObjectName(QStringLiteral("pushButtonContinue"));
    resume->setIcon(HygIconEngine::icon(QStringLiteral("results")));
    resume->setEnabled(restartTime.has_value());
    if (!restartTime)
        resume->setToolTip(tr("The run that wrote these files left no restart file."));
    m_clear->setObjectName(QStringLiteral("checkBoxClear"));
    m_clear->setToolTip(tr("Removes the files of all earlier runs, also those that the new run does not write again."));
    m_clear->setChecked(clear);

    layout->addWidget(start);
    auto * indented = new QHBoxLayout;
    indented->setContentsMargins(INDENT, 0, 0, 8);
    indented->addWidget(m_clear);
    layout->addLayout(indented);
    layout->addWidget(resume);
    auto * since = new QLabel(this);
    since->setObjectName(QStringLiteral("restartTime"));
    since->setContentsMargins(INDENT, 0, 0, 8);
    if (restartTime)
        since->setText(tr("It goes on from %1 d; what lies behind is calculated anew.")
                           .arg(HygFormat::number(*restartTime / KOR::SECONDS_PER_DAY)));
    else
        since->setText(resume->toolTip());
    layout->addWidget(since);
    auto * buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    layout->addWidget(buttons);

    connect(start, &QAbstractButton::clicked, this, [this] {
        m_answer = FromBegin;
        accept();
    });
    connect(resume, &QAbstractButton::clicked, this, [this] {
        m_answer = Continue;
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    (restartTime ? resume : start)->setFocus();
}

HygSimulationRunRequestDialog::answer_t HygSimulationRunRequestDialog::ask() {
    return exec() == QDialog::Accepted ? m_answer : Cancel;
}

bool HygSimulationRunRequestDialog::clearResultDirectory() const {
    return m_clear->isChecked();
}
