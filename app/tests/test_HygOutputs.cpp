#include "EditedProject.h"
#include "outputs/HygOutputDialog.h"
#include "outputs/HygOutputPlaces.h"
#include "outputs/HygOutputTexts.h"
#include "outputs/HygOutputsView.h"
#include "outputs/HygStandardOutputs.h"

#include <HYGRION/ProjectCheck.h>
#include <SOLVER/OutputQuantities.h>
#include <SOLVER/OutputWriter.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

namespace {

using HYGRION::Assignment;
using HYGRION::OutputFile;
using HYGRION::Project;

Project example(const char * name) {
    Project project;
    project.readXML(std::string(HYG_BINARY_DIR "/examples/") + name);
    return project;
}

/// Takes all outputs and what ties them to places out of a project.
void clearOutputs(Project & project) {
    project.m_outputs = {};
    std::erase_if(project.m_assignments.m_list,
                  [](const Assignment & a) { return a.m_type == Assignment::type_t::Output; });
}

std::vector<std::string> namesOf(const HYGRION::Outputs & outputs) {
    std::vector<std::string> names;
    for (const OutputFile & file : outputs.m_outputFiles)
        names.push_back(file.m_name);
    return names;
}

TEST(StandardOutputs, AreWhatTheSolverTakesForEveryConstruction) {
    for (const char * name : {"Brick wall.h6p", "Window reveal.h6p", "Floor slab edge.h6p"}) {
        SCOPED_TRACE(name);
        Project project = example(name);
        clearOutputs(project);
        const HygStandardOutputs::Sections sections = HygStandardOutputs::of(project);
        project.m_outputs = sections.outputs;
        project.m_assignments = sections.assignments;
        EXPECT_NO_THROW(project.m_outputs.checkParameters());
        std::size_t places = 0;
        for (const OutputFile & file : project.m_outputs.m_outputFiles) {
            EXPECT_NO_THROW(SOLVER::OutputWriter::checkDefinition(file)) << file.m_name;
            for (const Assignment & assignment : HygOutputPlaces::of(project, file.m_name).assignments) {
                EXPECT_NO_THROW(SOLVER::OutputWriter::checkPlace(file, assignment)) << file.m_name;
                EXPECT_NO_THROW(assignment.checkParameters(project.m_disc)) << file.m_name;
                ++places;
            }
        }
        EXPECT_GE(places, project.m_outputs.m_outputFiles.size());
        for (const auto & finding : HYGRION::ProjectCheck::checkProject(project))
            EXPECT_EQ(finding.place.find("output"), std::string::npos) << finding.message;
        // Once is enough.
        const HygStandardOutputs::Sections again = HygStandardOutputs::of(project);
        EXPECT_EQ(again.outputs, project.m_outputs);
        EXPECT_EQ(again.assignments.m_list, project.m_assignments.m_list);
    }
    Project dry = example("Brick wall.h6p");
    clearOutputs(dry);
    dry.m_init.m_balanceEquationModule = "HeatTransport";
    for (const OutputFile & file : HygStandardOutputs::of(dry).outputs.m_outputFiles)
        EXPECT_FALSE(SOLVER::outputQuantity(file.m_quantity).needsMoisture) << file.m_name;
}

TEST(OutputTexts, EveryQuantityOfTheSolverHasWords) {
    for (const SOLVER::OutputQuantity & quantity : SOLVER::outputQuantities())
        EXPECT_NE(HygOutputTexts::quantity(quantity.keyword).toStdString(),
                  quantity.keyword == "Temperature" || quantity.keyword == "Energy" ? "" : quantity.keyword);
}

class OutputsViewTest : public EditedProject {
protected:
    void open(const char * name) {
        Project project = example(name);
        const QString file = path("wall.h6p");
        ASSERT_TRUE(project.writeXML(file.toStdString()));
        ASSERT_TRUE(m_projects.openProject(file));
        m_view.resize(1000, 500);
        m_view.show();
    }
    const HYGRION::Outputs & outputs() const { return m_projects.project().m_outputs; }
    void trigger(const char * name) {
        auto * action = m_view.findChild<QAction *>(name);
        ASSERT_NE(action, nullptr);
        ASSERT_TRUE(action->isEnabled()) << name;
        action->trigger();
    }
    void select(int row) { m_view.findChild<QTableView *>("outputTable")->selectRow(row); }
    /// Fills the dialog that comes; one that stays open is cancelled, so that a test fails and does not hang.
    template <typename Fill> void answer(const Fill & fill) {
        QTimer::singleShot(0, &m_view, [fill] {
            auto * dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            fill(*dialog);
            auto * ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            if (ok->isEnabled())
                ok->click();
            else
                dialog->reject();
        });
    }
    template <typename Widget> static Widget & in(QDialog & dialog, const char * name) {
        auto * found = dialog.findChild<Widget *>(name);
        if (found == nullptr)
            throw std::runtime_error(std::string("no widget ") + name);
        return *found;
    }

    HygOutputsView m_view{&m_projects};
};

TEST_F(OutputsViewTest, EveryGestureIsOneStepThatCanBeTakenBack) {
    open("Brick wall.h6p");
    const Project before = m_projects.project();
    const auto isOneStep = [&](const auto & gesture) {
        const int steps = m_projects.undoStack().index();
        gesture();
        EXPECT_EQ(m_projects.undoStack().index(), steps + 1);
        const Project after = m_projects.project();
        m_projects.undoStack().undo();
        EXPECT_EQ(outputs(), before.m_outputs);
        EXPECT_EQ(m_projects.project().m_assignments.m_list, before.m_assignments.m_list);
        m_projects.undoStack().redo();
        EXPECT_EQ(outputs(), after.m_outputs);
        EXPECT_EQ(m_projects.project().m_assignments.m_list, after.m_assignments.m_list);
        m_projects.undoStack().undo();
    };

    isOneStep([&] {
        select(0);
        answer([](QDialog & dialog) {
            in<QLineEdit>(dialog, "outputName").setText("Surface");
            auto & place = in<QComboBox>(dialog, "outputPlace");
            place.setCurrentIndex(1); // the first surface
        });
        trigger("editOutput");
        EXPECT_EQ(outputs().m_outputFiles[0].m_name, "Surface");
        const HygOutputPlaces::Place place = HygOutputPlaces::of(m_projects.project(), "Surface");
        ASSERT_EQ(place.assignments.size(), 1u);
        EXPECT_TRUE(place.isOnSide);
        EXPECT_TRUE(HygOutputPlaces::of(m_projects.project(), "Temperature field").assignments.empty());
    });
    isOneStep([&] {
        answer([](QDialog & dialog) {
            in<QLineEdit>(dialog, "outputName").setText("Ice");
            auto & quantity = in<QComboBox>(dialog, "outputQuantity");
            quantity.setCurrentIndex(quantity.findData("IceMassDensity"));
            auto & space = in<QComboBox>(dialog, "outputSpace");
            space.setCurrentIndex(static_cast<int>(OutputFile::space_type_t::Integral));
            EXPECT_EQ(in<QComboBox>(dialog, "outputUnit").currentText(), "kg") << "the sum has a unit of its own";
        });
        trigger("newOutput");
        EXPECT_EQ(outputs().m_outputFiles.back().m_quantity, "IceMassDensity");
        EXPECT_NO_THROW(SOLVER::OutputWriter::checkDefinition(outputs().m_outputFiles.back()));
    });
    isOneStep([&] {
        auto & table = *m_view.findChild<QTableView *>("outputTable");
        table.selectAll();
        trigger("removeOutput");
        EXPECT_TRUE(outputs().m_outputFiles.empty());
        for (const Assignment & assignment : m_projects.project().m_assignments.m_list)
            EXPECT_NE(assignment.m_type, Assignment::type_t::Output);
        EXPECT_TRUE(m_view.findChild<QLabel *>("outputsEmpty")->isVisible());
    });
    isOneStep([&] {
        m_view.findChild<QListWidget *>("outputSchedules")->setCurrentRow(0);
        answer([](QDialog & dialog) { in<QLineEdit>(dialog, "scheduleName").setText("Each hour"); });
        trigger("editSchedule");
        EXPECT_EQ(outputs().m_outputFiles.back().m_outputGrid, "Each hour") << "the outputs follow";
    });
}

TEST_F(OutputsViewTest, WhatCannotBeIsRefusedWithTheReason) {
    open("Brick wall.h6p");
    const HYGRION::Outputs before = outputs();
    const auto isRefused = [&](const char * widget, const char * message, const auto & fill) {
        answer([widget, message, fill](QDialog & dialog) { // answers when the dialog opens
            fill(dialog);
            EXPECT_FALSE(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled());
            EXPECT_EQ(in<QLabel>(dialog, widget).text().toStdString(), message);
        });
    };
    select(0);
    isRefused("outputMessage", "There is already an output with this name.",
              [](QDialog & dialog) { in<QLineEdit>(dialog, "outputName").setText("Humidity field"); });
    trigger("editOutput");
    isRefused("outputMessage", "This quantity exists on sides only; choose a surface.", [](QDialog & dialog) {
        auto & quantity = in<QComboBox>(dialog, "outputQuantity");
        quantity.setCurrentIndex(quantity.findData("TotalFluxHeat"));
    });
    trigger("editOutput");
    isRefused("outputMessage", "This quantity exists in cells only; choose cells.", [](QDialog & dialog) {
        auto & quantity = in<QComboBox>(dialog, "outputQuantity");
        quantity.setCurrentIndex(quantity.findData("MoistureMassDensity"));
        in<QComboBox>(dialog, "outputPlace").setCurrentIndex(1);
    });
    trigger("editOutput");
    m_view.findChild<QListWidget *>("outputSchedules")->setCurrentRow(0);
    answer([](QDialog & dialog) {
        in<QLineEdit>(dialog, "step0").setText("0 h");
        EXPECT_FALSE(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled());
    });
    trigger("editSchedule");
    trigger("removeSchedule"); // in use
    EXPECT_EQ(outputs(), before);
    EXPECT_EQ(m_projects.undoStack().count(), 0);
    emit m_projects.definitionRequested(static_cast<int>(HYGRION::definition_t::OutputFile), "Inner heat flux");
    EXPECT_EQ(m_view.findChild<QTableView *>("outputTable")->currentIndex().data().toString().toStdString(),
              "Inner heat flux");
}

TEST_F(OutputsViewTest, StandardOutputsFillAProjectWithoutAny) {
    open("Window reveal.h6p");
    auto & table = *m_view.findChild<QTableView *>("outputTable");
    table.selectAll();
    trigger("removeOutput");
    const int steps = m_projects.undoStack().index();
    emit m_view.findChild<QLabel *>("outputsEmpty")->linkActivated("standard");
    EXPECT_EQ(m_projects.undoStack().index(), steps + 1);
    EXPECT_THAT(namesOf(outputs()), testing::IsSupersetOf({"Temperature field", "Humidity field", "Moisture mass"}));
    EXPECT_TRUE(table.isVisible());
    for (int row = 0; row < table.model()->rowCount(); ++row)
        EXPECT_FALSE(table.model()->index(row, 3).data(Qt::ForegroundRole).isValid()) << "nothing is tied to nowhere";
    trigger("addStandardOutputs"); // there is nothing to add
    EXPECT_EQ(m_projects.undoStack().index(), steps + 1);
}

} // namespace
