#pragma once

#include <QString>
#include <QVariant>

/// The pendant's own configuration and accounts, in one SQLite file.
class VeltrixDatabase {
public:
    static VeltrixDatabase *getInstance();

    /// Opens or creates `<directory>/pendant.db`; false with `error` filled when it cannot be had.
    bool open(const QString &directory, QString *error = nullptr);
    void close();

    /// Stores what App keeps between runs: xmlName, isDeg.
    void updateAppConfigData();
    /// Reads it back into App.
    void loadAppConfigData();

    QVariant value(const QString &key, const QVariant &fallback = {}) const;
    void setValue(const QString &key, const QVariant &value);
};
