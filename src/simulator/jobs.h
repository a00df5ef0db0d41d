#pragma once

#include "jobname.h"
#include "simulator/jobprogram.h"

#include <QHash>
#include <QString>
#include <map>
#include <utility>

class ParameterStore;

/// The jobs that the controller has accepted, by robot and name: their texts in the parameter
/// store, and their programs ready to be stepped.
class JobShelf {
public:
    /// The longest name, in bytes of UTF-8.
    static constexpr int kMaxNameBytes = jobname::kMaxBytes;

    /// What is kept for each robot at most.
    struct Limits {
        int jobs = 1000;
        qint64 bytes = 64 * 1024 * 1024; ///< of all its jobs, as they are stored
    };
    void setLimits(const Limits &limits) { m_limits = limits; }

    /// Why a job cannot be kept in the place of the one of that name: its name, or the limits. No
    /// fault when it can.
    JobFault refusal(const ParameterStore &store, int robot, const QString &name,
                     const QString &text);
    /// Stores an accepted job in the place of the one of that name. False when the store does not
    /// take it. The program counts once settle() says that the store has it; the job that was there
    /// stays until then.
    bool keep(ParameterStore &store, int robot, const QString &name, const QString &text,
              std::unique_ptr<JobProgram> program);
    /// What keep() has stored since is on the disk, or was taken back.
    void settle(bool isStored);
    /// Null when no such job was ever accepted. The program stays until another takes its place.
    const JobProgram *find(const ParameterStore &store, int robot, const QString &name);
    /// Forgets the programs; what is in the store stays there.
    void clear();

private:
    using Place = std::pair<int, QString>;
    struct Kept {
        Place place;
        std::unique_ptr<JobProgram> program;
        qint64 bytes;
    };
    const QHash<QString, qint64> &sizesOf(const ParameterStore &store, int robot);

    Limits m_limits;
    std::map<Place, std::unique_ptr<JobProgram>> m_programs;
    std::vector<Kept> m_unsettled;
    std::map<int, QHash<QString, qint64>> m_sizes; ///< of a robot's stored jobs, once asked for
};
