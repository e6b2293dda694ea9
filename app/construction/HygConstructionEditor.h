#pragma once

#include "construction/HygGridMap.h"

#include <HYGRION/GridEdit.h>
#include <HYGRION/Project.h>

#include <KOR/Parameter.h>

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class HygProjectHandler;
class QUndoCommand;
class QUndoStack;

/// What the construction view can do to the project: each call is one undo command, or one macro. What cannot be done is
/// told by refused() and changes nothing. Directions are bits of HYGRION::Disc::dir_t.
class HygConstructionEditor : public QObject {
    Q_OBJECT
public:
    /// A run of cells of one direction that is divided anew; without settings it stays as it is.
    struct Layer {
        std::size_t first = 0;
        std::size_t last = 0;
        std::optional<HYGRION::Disc::LayerSettings> settings;
    };
    /// A layer to be put into a stack of layers.
    struct NewLayer {
        HYGRION::MaterialReference material; ///< added to the project if it has none of that name
        KOR::Parameter thickness;
        bool isDivided = true;  ///< into cells, finest at its borders
        std::size_t before = 0; ///< column before which it comes to stand
    };

    explicit HygConstructionEditor(HygProjectHandler & projects, QObject * parent = nullptr);

    const HYGRION::Project & project() const;
    bool hasProject() const;

    void insert(unsigned int dir, std::size_t before, std::size_t count);
    void split(unsigned int dir, std::size_t first, std::size_t last, std::size_t count);
    void merge(unsigned int dir, std::size_t first, std::size_t last);
    void remove(unsigned int dir, std::size_t first, std::size_t last);
    /// Takes columns out; what was on the construction's ends stays on its ends.
    void removeLayer(std::size_t first, std::size_t last);
    void mirror(unsigned int dir, std::size_t first, std::size_t last);
    void move(unsigned int dir, std::size_t first, std::size_t last, std::size_t before);
    /// Gives each of the cells a width.
    void setWidth(unsigned int dir, std::size_t first, std::size_t last, const KOR::Parameter & width);
    /// Gives the run of cells a width; the cells keep their proportions.
    void setThickness(unsigned int dir, std::size_t first, std::size_t last, const KOR::Parameter & width);
    void addLayer(const NewLayer & layer);
    /// Makes the material of a file the innermost layer, as thick as it usually is.
    void addFileAsLayer(const QString & path);
    /// Makes a grid of n x n cells of a width out of a project as new.
    void startDetail(int cells, const KOR::Parameter & width);
    void discretize(unsigned int dir, const std::vector<Layer> & layers);
    /// The widths [m] that a layer of \p width [m] is divided into; the dialog shows them before discretize() makes them.
    /// Throws as Disc::autoDisc.
    static std::vector<double> cellsOf(double width, const HYGRION::Disc::LayerSettings & settings);

    void assign(HYGRION::Assignment::type_t type, const std::string & name, const std::vector<HYGRION::Range> & ranges,
                HYGRION::Assignment::location_t location);
    /// Adds the material to the project first if it has none of that name.
    void assignMaterial(const HYGRION::MaterialReference & material, const std::vector<HYGRION::Range> & ranges);
    /// Assigns the material of a file, which the project gets if it does not have it yet, in one step of undo.
    void assignFile(const QString & path, const std::vector<HYGRION::Range> & ranges);
    void unassign(HYGRION::Assignment::type_t type, const std::string & name,
                  const std::vector<HYGRION::Range> & ranges, HYGRION::Assignment::location_t location);
    void removeAssignments(std::vector<std::size_t> indices);
    void changeAssignment(std::size_t index, const HYGRION::Assignment & changed);
    /// Takes all assignments off the cells.
    void clear(const std::vector<HYGRION::Range> & ranges);
    /// Puts the cells and the definitions that they need onto the clipboard.
    void copy(const HYGRION::Range & range) const;
    /// Pastes a copied text from the first cell of a range on. What the project lacks for it is added in the same step.
    void paste(const QString & text, const HYGRION::Range & at);
    /// Gives the cells of materials that lie under later ones to those. Linear in the number of cells.
    void resolveOverlaps();
    /// Adds an interface with the standard climate of a side and assigns it. \return its name
    void addStandardInterface(bool isOutdoor, const std::vector<HYGRION::Range> & ranges,
                              HYGRION::Assignment::location_t location);

    /// Adds and assigns the outputs of HygStandardOutputs in one step.
    void addStandardOutputs();

signals:
    void refused(const QString & story);
    /// The next command moves cells; told before it is pushed.
    void cellsToMove(const HygGridMap & map);
    /// What went beyond the request, such as assignments that are gone.
    void informed(const QString & text);

private:
    using GridChange = std::function<void(HYGRION::Disc &, HYGRION::Assignments &)>;
    using ListChange = std::function<void(HYGRION::Assignments &)>;
    using GridMap = std::function<HygGridMap(const HYGRION::Disc & before, const HYGRION::Disc & after)>;
    /// \param map what becomes of the cells; without it all stay
    /// \param field see HygUndoCommandBase::setField()
    void changeGrid(const QString & text, const GridChange & change, const GridMap & map = {},
                    const QString & field = {});
    void changeList(const QString & text, const ListChange & change);
    void attempt(const std::function<void()> & action);
    /// Commands that add what stands behind the ends of the project's own lists. Throws as they do.
    std::vector<std::unique_ptr<QUndoCommand>> additions(const HYGRION::Project & merged) const;
    void tellGone(const std::vector<HYGRION::Assignment> & gone);

    bool hasMaterial(const std::string & name) const;
    /// The material of a file as the project has it, or would have it.
    HYGRION::MaterialReference materialOf(const QString & path) const;
    QUndoStack & stack() const;

    HygProjectHandler & m_projects;
};
