#include <HYGRION/Disc.h>

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>
#include <numeric>

/// The generators that divide one layer into cells.
namespace HYGRION {

namespace {

/// A middle cell may be smaller than its neighbour by this factor without counting as smaller.
constexpr double TOLERANCE = 1.00001;

/// Appends a cell; refuses steps that would go on for ever.
void append(std::vector<double> & steps, double step) {
    if (steps.size() >= Disc::MAX_CELLS_OF_LAYER)
        throw KOR::Exception("The layer would be divided into too many cells, choose a larger minimum step or stretch.",
                             "[Disc::discretizeWidth]");
    steps.push_back(step);
}

std::size_t countOf(double cells) {
    if (!(cells <= static_cast<double>(Disc::MAX_CELLS_OF_LAYER)))
        throw KOR::Exception("The layer would be divided into too many cells, choose a larger minimum or maximum step.",
                             "[Disc::discretizeWidth]");
    return static_cast<std::size_t>(cells);
}

/// Sets the last cell to what the others leave of \p width.
void close(std::vector<double> & steps, double width) {
    if (!steps.empty())
        steps.back() = width - std::accumulate(steps.begin(), steps.end() - 1, 0.0);
}

void checkGeometric(double width, double minStep, double stretch) {
    if (width < 3 * minStep)
        throw KOR::Exception("Minimum step size is too large, must be smaller than minimum element width / 3.",
                             "[Disc::doubleSidedDisc]");
    if (!(minStep > 0) || !(stretch > 0) || !std::isfinite(width))
        throw KOR::Exception(KOR::text("Minimum step %1 and stretch %2 must be positive.", minStep, stretch),
                             "[Disc::doubleSidedDisc]");
}

/// Cells between the positions width * share(i), i = 0..n-1. The last cell closes the positions, not the width.
template <typename Share>
void tangentGrid(double width, std::size_t n, const Share & share, std::vector<double> & steps) {
    double previous = 0;
    for (std::size_t i = 1; i < n; ++i) {
        const double position = share(static_cast<double>(i) / static_cast<double>(n)) * width;
        steps.push_back(position - previous);
        previous = position;
    }
    steps.push_back(0);
    close(steps, previous);
}

/// Refined at both ends.
void doubleTangentGrid(double width, double minStep, double stretch, std::vector<double> & steps) {
    const double a = 2 * stretch;
    const double t = std::tanh(a / 2);
    const double n = std::floor(1 / ((2 * minStep / width - 1) * t / a + 0.5) + 0.5);
    tangentGrid(
        width, countOf(n), [a, t](double s) { return (std::tanh((s - 0.5) * a) / t + 1) * 0.5; }, steps);
}

/// Refined at the start.
void singleTangentGrid(double width, double minStep, double stretch, std::vector<double> & steps) {
    const double t = std::tanh(stretch);
    const double n = std::max(std::floor(1 / ((minStep / width - 1) * t / stretch + 1) + 0.5), 3.0);
    tangentGrid(
        width, countOf(n), [stretch, t](double s) { return std::tanh((s - 1) * stretch) / t + 1; }, steps);
}

} // namespace

void Disc::discretizeWidth(double width, unsigned int mode, double minStep, double maxStep, double stretch,
                           bool geometric, std::vector<double> & steps) {
    if (mode == MODE_NONE || minStep >= width) {
        steps = {width};
        return;
    }
    if (minStep > width / 3) {
        steps = {width / 3, width / 3, width - 2 * (width / 3)};
        return;
    }
    if (!(minStep > 0) || !(stretch > 0))
        throw KOR::Exception(KOR::text("Minimum step %1 and stretch %2 must be positive.", minStep, stretch),
                             "[Disc::discretizeWidth]");
    steps.clear();
    if (mode == MODE_BOTH) {
        if (geometric)
            doubleSidedDisc(width, minStep, stretch, steps);
        else
            doubleTangentGrid(width, minStep, stretch, steps);
    } else if (mode == MODE_START || mode == MODE_END) {
        if (geometric)
            singleSidedDisc(width, minStep, stretch, steps);
        else
            singleTangentGrid(width, minStep, stretch, steps);
        if (mode == MODE_END)
            std::reverse(steps.begin(), steps.end());
    }
    applyMaxStepSize(steps, maxStep);
}

void Disc::doubleSidedDisc(double width, double minStep, double stretch, std::vector<double> & steps) {
    checkGeometric(width, minStep, stretch);
    steps.clear();
    double rest = width;
    double dx = minStep;
    std::size_t mirrored = 0;
    while (2 * dx < rest && mirrored == 0) {
        const double r = rest - 2 * dx;
        if (r >= dx) {
            rest = r;
            append(steps, dx);
            dx *= stretch;
            continue;
        }
        // What is left makes three equal cells, or two if those would be smaller than the one before.
        const double third = rest / 3;
        if (!steps.empty() && third * TOLERANCE < steps.back()) {
            append(steps, rest / 2);
            mirrored = steps.size();
        } else {
            append(steps, third);
            mirrored = steps.size();
            append(steps, third);
        }
    }
    if (mirrored == 0) {
        const double half = rest / 2;
        if (steps.empty() || steps.back() <= half * TOLERANCE) {
            append(steps, half);
            mirrored = steps.size();
        } else {
            mirrored = steps.size();
            append(steps, rest);
        }
    }
    for (std::size_t i = mirrored; i-- > 0;)
        steps.push_back(steps[i]);
    close(steps, width);
}

void Disc::singleSidedDisc(double width, double minStep, double stretch, std::vector<double> & steps) {
    checkGeometric(width, minStep, stretch);
    steps.clear();
    double rest = width;
    double dx = minStep;
    while (rest > dx) {
        append(steps, dx);
        rest -= dx;
        dx *= stretch;
    }
    // Equal cells at the end, out of the rest and as many of the last cells as are wider than their mean.
    double mean = rest / 2;
    std::size_t taken = 0;
    while (taken < steps.size() && steps[steps.size() - 1 - taken] > mean) {
        rest += steps[steps.size() - 1 - taken];
        ++taken;
        mean = rest / static_cast<double>(taken + 2);
    }
    steps.resize(steps.size() - taken);
    steps.insert(steps.end(), taken + 2, mean);
    close(steps, width);
}

void Disc::applyMaxStepSize(std::vector<double> & steps, double maxStep) {
    const auto isTooWide = [maxStep](double step) { return step > maxStep; };
    if (!(maxStep > 0))
        return;
    auto first = std::find_if(steps.begin(), steps.end(), isTooWide);
    if (first == steps.end())
        return;
    auto end = std::find_if(steps.rbegin(), steps.rend(), isTooWide).base();
    const auto divided = [&] {
        const double width = std::accumulate(first, end, 0.0);
        return std::pair(width, countOf(std::ceil(width / maxStep)));
    };
    auto [width, n] = divided();
    const double mean = width / static_cast<double>(n);
    const bool growsFirst = first != steps.begin() && *(first - 1) > mean;
    const bool growsEnd = end != steps.end() && *end > mean;
    first -= growsFirst ? 1 : 0;
    end += growsEnd ? 1 : 0;
    if (growsFirst || growsEnd)
        std::tie(width, n) = divided();
    std::vector<double> equal(n, width / static_cast<double>(n));
    equal.back() = width - static_cast<double>(n - 1) * equal.front();
    first = steps.erase(first, end);
    steps.insert(first, equal.begin(), equal.end());
}

} // namespace HYGRION
