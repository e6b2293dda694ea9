#include "JumpTable.h"

#include <KOR/Time.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace SOLVER {

using KOR::SECONDS_PER_YEAR;

void JumpTable::addTo(List & list, double time, bool isContinuous) {
    if (!isContinuous)
        list.push_back({time - LEAD, true});
    list.push_back({time, isContinuous});
}

void JumpTable::add(double time, bool isContinuous) {
    addTo(m_once, time, isContinuous);
}

void JumpTable::addYearly(double secondsOfYear, bool isContinuous) {
    addTo(m_yearly, secondsOfYear - SECONDS_PER_YEAR * std::floor(secondsOfYear / SECONDS_PER_YEAR), isContinuous);
}

void JumpTable::sort(List & list) {
    std::sort(list.begin(), list.end(), [](const Jump & a, const Jump & b) { return a.time < b.time; });
    std::size_t kept = 0;
    for (const Jump & jump : list) {
        if (kept > 0 && jump.time - list[kept - 1].time < SAME_TIME)
            list[kept - 1].isContinuous = list[kept - 1].isContinuous && jump.isContinuous;
        else
            list[kept++] = jump;
    }
    list.resize(kept);
}

void JumpTable::finish() {
    for (Jump & jump : m_yearly) // the stop before a jump at new year
        if (jump.time < 0)
            jump.time += SECONDS_PER_YEAR;
    sort(m_once);
    sort(m_yearly);
}

const JumpTable::Jump * JumpTable::after(const List & list, double time) {
    const auto found = std::upper_bound(list.begin(), list.end(), time + SAME_TIME,
                                        [](double value, const Jump & jump) { return value < jump.time; });
    return found == list.end() ? nullptr : &*found;
}

double JumpTable::next(double time) const {
    double result = std::numeric_limits<double>::infinity();
    if (const Jump * jump = after(m_once, time))
        result = jump->time;
    if (!m_yearly.empty()) {
        const double year = SECONDS_PER_YEAR * std::floor(time / SECONDS_PER_YEAR);
        const Jump * jump = after(m_yearly, time - year);
        const double yearly = jump ? year + jump->time : year + SECONDS_PER_YEAR + m_yearly.front().time;
        // The first of the next year may be the one at which we stand, seen from the other side of midnight.
        if (yearly > time + SAME_TIME)
            result = std::min(result, yearly);
        else if (m_yearly.size() > 1)
            result = std::min(result, year + SECONDS_PER_YEAR + m_yearly[1].time);
        else
            result = std::min(result, yearly + SECONDS_PER_YEAR);
    }
    return result;
}

bool JumpTable::isContinuousAt(double time) const {
    const auto isJumpAt = [](const List & list, double at) {
        const Jump * jump = after(list, at - 3 * SAME_TIME);
        return jump && !jump->isContinuous && std::fabs(jump->time - at) <= 2 * SAME_TIME;
    };
    const double ofYear = time - SECONDS_PER_YEAR * std::floor(time / SECONDS_PER_YEAR);
    return !isJumpAt(m_once, time) && !isJumpAt(m_yearly, ofYear) && !isJumpAt(m_yearly, ofYear - SECONDS_PER_YEAR);
}

} // namespace SOLVER
