#pragma once

#include "jobfault.h"
#include "programjob.h"
#include "simulator/ports.h"

#include <QByteArray>
#include <memory>
#include <vector>

/// A job that the controller has checked, in the form in which it can be stepped: its commands, and
/// for each line of a loop's head or end where the other one is. Lines count from 1.
class JobProgram {
public:
    /// The most lines that a job may have.
    static constexpr int kMaxLines = 9999;

    struct Checked {
        std::unique_ptr<JobProgram> program; ///< null when there is a fault
        JobFault fault; ///< `line` as JobFault says; 0 for what belongs to no line
    };
    /// Reads and checks the text of a job's file. A job passes when all of this holds:
    ///
    /// - the text reads; it has at most kMaxLines commands;
    /// - each loop has its end and each end its loop;
    /// - each move goes to a position of the job;
    /// - each loop and wait has a condition of a known kind. Its operand is a variable or input of
    ///   that kind; its right side is a whole number, 0 or 1 where the operand is on or off;
    /// - inputs and outputs are among `ports`; outputs get 0 or 1;
    /// - variables, also those of the start values, are I001 to I100, GI001 to GI990, B001 to B100
    ///   or GB001 to GB990. Palletising commands may name none ("[-]"). I000, which a new condition
    ///   or assignment names, passes there;
    /// - pauses are not negative, process numbers are 1 to 9, palletising moves are MovJ or MovL.
    ///
    /// The first fault by lines is the one that is told; a loop without an end counts where it
    /// begins, and of several the innermost does. Start values come last.
    static Checked check(const QByteArray &text, const QString &name, const Ports &ports = {});

    const ProgramJOB &job() const { return *m_job; }
    int lineCount() const { return m_job->lineCount(); }

    /// The end of the loop that begins in that line, or the head of the loop that ends there; 0 for
    /// any other line.
    int partner(int line) const;
    /// Where the program goes on after a line: a loop's head leads into the loop when its condition
    /// `holds` and else behind its end, a loop's end back to its head, any other line to the next.
    /// The program is through when this is lineCount() + 1.
    int next(int line, bool holds = true) const;

private:
    explicit JobProgram(std::unique_ptr<ProgramJOB> job) : m_job(std::move(job)) { }

    JobFault pairLoops();
    JobFault checkStartValues() const;

    std::unique_ptr<ProgramJOB> m_job;
    std::vector<int> m_partners; ///< by line - 1
};
