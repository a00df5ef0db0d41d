#pragma once

#include <QString>

class Operator;

/// Makes a palletising job with the program wizard, reads it in the job list, and copies its file.
class JobTour {
public:
    /// The job's file is copied to `directory`.
    JobTour(Operator &hand, QString directory);

    /// Begins and ends on the top menu. `name` must be the name of no job yet.
    bool walk(const QString &name, bool depalletise);

private:
    bool nameTheJob(const QString &name, bool depalletise);
    bool teachThePoints();
    bool jog(const QString &key);
    bool chooseSignals();
    bool chooseVariables();
    bool finish(bool depalletise);
    bool readTheJob(const QString &name);

    Operator &m_operator;
    QString m_directory;
};
