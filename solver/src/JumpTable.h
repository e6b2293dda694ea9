#pragma once

#include <vector>

namespace SOLVER {

/// The times at which loads jump or have a kink that no step may pass: once, or every year.
class JumpTable {
public:
    /// A step that ends at a jump would see the load behind it; so a stop lies this much before each jump [s], and the
    /// step across it is too short to matter.
    static constexpr double LEAD = 1e-3;
    /// Times closer together than this [s] are the same.
    static constexpr double SAME_TIME = 1e-6;

    /// \param time [s] of the simulation \param isContinuous the load has a kink only
    void add(double time, bool isContinuous);
    /// \param secondsOfYear [s] since the start of any year
    void addYearly(double secondsOfYear, bool isContinuous);
    /// Sorts; to be called once, before the first question.
    void finish();

    /// The first time after \p time [s]; infinity if there is none.
    double next(double time) const;
    /// Whether all loads are continuous at a time that next() gave.
    bool isContinuousAt(double time) const;

private:
    struct Jump {
        double time;
        bool isContinuous;
    };
    using List = std::vector<Jump>;
    static void addTo(List & list, double time, bool isContinuous);
    static void sort(List & list);
    /// The first jump of the list after \p time, nullptr if there is none.
    static const Jump * after(const List & list, double time);

    List m_once, m_yearly;
};

} // namespace SOLVER
