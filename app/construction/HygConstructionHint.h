#pragma once

#include "construction/HygConstructionScene.h"

/// What a construction still lacks, found in the plane that is shown.
struct HygConstructionHint {
    /// Edges are the outer ones of a detail, where it may be cut out of the building: often nothing shall pass there.
    enum kind_t { NoMaterial, UnknownMaterial, NoInterface, OpenEdge, Overlap, NoFile, NoOutput };
    kind_t kind = NoMaterial;
    bool isWarning = true;
    std::vector<HYGRION::Range> ranges; ///< the cells concerned
    HYGRION::Assignment::location_t side = HYGRION::Assignment::location_t::Element;
    std::uint64_t count = 0; ///< cells or faces
    std::string name = {};   ///< of a material
    QString problem = {};    ///< with its file

    /// All that the search needs, as a copy: a thread may look through it while the project changes.
    struct Snapshot {
        HygCellPlane cells;
        HYGRION::Assignments interfaces; ///< those of the plane, as if it were the only one
        std::vector<HYGRION::Range> overlaps;
        std::uint64_t overlapping = 0; ///< cells
        bool hasInterfaces = false;    ///< in any plane
        /// Names of the materials, and why their files cannot be used: empty if they can.
        std::vector<std::pair<std::string, QString>> materials;
        bool hasOutputs = false;
        bool isStack = true;
    };
    static Snapshot snapshot(const HygConstructionScene & scene);

    /// In the order of their weight. Linear in the number of cells.
    static std::vector<HygConstructionHint> find(const Snapshot & construction);
};
