#pragma once

#include <string>

namespace SOLVER {

/// The directory of one run, with its parts "log", "results" and "var". While the object lives no other run can have
/// it; a run that is killed lets go of it.
class RunDirectory {
public:
    /// Makes the directory and takes it. Throws ("[RunDirectory::RunDirectory]") when a file of that name is in the way,
    /// the system refuses, or "Directory '%1' is in use by another run (process %2). ...".
    explicit RunDirectory(const std::string & path);
    ~RunDirectory();
    RunDirectory(const RunDirectory &) = delete;
    RunDirectory & operator=(const RunDirectory &) = delete;

    const std::string & path() const { return m_path; }
    std::string results() const { return m_path + "/results"; }
    std::string restartFile() const { return m_path + "/var/restart.h6r"; }
    std::string log(const char * name) const { return m_path + "/log/" + name; }

private:
    std::string m_path;
    int m_lock = -1;
};

} // namespace SOLVER
