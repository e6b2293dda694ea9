#pragma once

#include <functional>
#include <string_view>
#include <vector>

namespace SOLVER {

/// A smooth function of one variable as a piecewise cubic over equidistant nodes, monotone wherever the nodes are;
/// straight beyond its ends. Empty: zero everywhere.
class Curve {
public:
    struct Range {
        double begin, end, step;
    };
    Curve() = default;
    /// \param name of function and material, for the message when a value is not finite ("[Curve::Curve]")
    Curve(const std::function<double(double)> & function, Range range, std::string_view name);

    bool isEmpty() const { return m_nodes.empty(); }
    double value(double x, double & slope) const;
    double value(double x) const {
        double slope = 0;
        return value(x, slope);
    }

private:
    struct Node {
        double value, slope;
    };
    double m_begin = 0, m_step = 1;
    std::vector<Node> m_nodes;
};

} // namespace SOLVER
