#pragma once

#include "simulator/jobprogram.h"

#include <QString>
#include <map>
#include <utility>

class ParameterStore;

/// The jobs that the controller has accepted, by robot and name: their texts in the parameter
/// store, and their programs ready to be stepped.
class JobShelf {
public:
    /// The longest name, in bytes of UTF-8.
    static constexpr int kMaxNameBytes = 100;

    /// Puts an accepted job in the place of the one of that name. False when the store does not
    /// take it; the job that was there stays.
    bool keep(ParameterStore &store, int robot, const QString &name, const QString &text,
              std::unique_ptr<JobProgram> program);
    /// Null when no such job was ever accepted. The program stays until another takes its place.
    const JobProgram *find(const ParameterStore &store, int robot, const QString &name);
    /// Forgets the programs; what is in the store stays there.
    void clear() { m_programs.clear(); }

private:
    std::map<std::pair<int, QString>, std::unique_ptr<JobProgram>> m_programs;
};
