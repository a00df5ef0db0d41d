#pragma once

#include "app/options.h"

#include "configurationfile.h"
#include "files/directorylock.h"
#include "startpage.h"
#include "statusbar.h"

#include <QCoreApplication>
#include <functional>

/// The files of the pendant at its start: the sole use of the data directory, the log, the
/// configuration. What stands in the way is told to the operator, who says how to go on.
///
/// No way leads past the accounts. Where they are lost, nobody gets in before an administrator's
/// password is set, which the operator must have confirmed and which the log tells.
class Startup {
    Q_DECLARE_TR_FUNCTIONS(Startup)
public:
    /// The choices of the pages; a copy of the configuration is FirstCopy and its row.
    enum Choice { TryAgain, End, Continue, StartEmpty, Confirm, Back, FirstCopy = 100 };
    /// Copies of so many days are offered.
    static constexpr int kOfferedCopies = 3;

    /// Puts a page before the operator; what StartPage::ask() does.
    using Ask = std::function<int(const QStringList &languages, const StartPage::Maker &maker)>;

    /// Everything up to the open configuration. False when the operator ends; then `error` has the
    /// sentence on what was in the way, which also went to the error output.
    bool run(const Options &options, const Ask &ask, QString *error);
    StatusBar::Keeps keeps() const { return m_keeps; }
    /// Others may use the data directory.
    void release();

private:
    using Fault = VeltrixDatabase::Fault;

    struct Obstacle {
        enum Kind { None, InUse, NotWritable, NoLog, Unreadable };
        Kind kind = None;
        QString reason; ///< in the words of the system
        DirectoryLock::Holder holder; ///< of a directory in use
        Fault fault = Fault::None; ///< of a configuration that cannot be read
    };

    Obstacle nextObstacle();
    Obstacle takeDirectory();
    Obstacle openConfiguration();
    Obstacle readConfiguration();
    bool settle(const Obstacle &obstacle);
    void settleNotWritable(const Obstacle &obstacle);
    void putBack(int choice, const QVector<configurationfile::Copy> &copies);
    void hold(const configurationfile::Content &content);
    void useInstead(const QString &copy, const configurationfile::Content &content);

    int show(const StartPage::Maker &maker);
    StartPage::Content page(const Obstacle &obstacle) const;
    void addRepairs(const QVector<configurationfile::Copy> &copies,
                    StartPage::Content *content) const;
    StartPage::Content confirmation() const;
    QString configurationPath() const;

    Options m_options;
    Ask m_ask;
    DirectoryLock m_lock;
    DirectoryLock m_controllerLock;
    StatusBar::Keeps m_keeps = StatusBar::Keeps::Everything;
    bool m_isHeld = false; ///< what there is of the configuration is in memory
    QString m_repairError; ///< why the last repair failed
};
