#pragma once

#include <QString>
#include <json/json.h>
#include <optional>

class QSqlDatabase;

/// The controller's memory: parameter sets as JSON, one row each, in `<directory>/controller.db`.
/// A set that was stored is there after a power cut: each one is a transaction of its own, on the
/// disk before store() returns. Used on the thread that opened it.
class ParameterStore {
public:
    /// What a parameter set belongs to.
    struct Key {
        int robot = 0; ///< 1 to 4; 0 for what belongs to no robot
        const char *package = ""; ///< "polish"
        int number = 0; ///< process number, from 1
        QString sub; ///< further part of a package, where it has several
    };

    ParameterStore();
    ~ParameterStore();
    ParameterStore(const ParameterStore &) = delete;
    ParameterStore &operator=(const ParameterStore &) = delete;

    /// Opens or creates the store; false with `error` filled when it cannot be had.
    bool open(const QString &directory, QString *error);
    void close();

    /// The stored set; nothing when there never was one.
    std::optional<Json::Value> load(const Key &key) const;
    /// False when it could not be written; the set that was there stays.
    bool store(const Key &key, const Json::Value &value);

private:
    bool openDatabase(const QString &directory, QString *error);
    QSqlDatabase database() const;

    QString m_connection; ///< name of the database connection, of this instance alone
};
