#pragma once

// The pendant as it runs on a desk, with data and pictures in directories of the test's own.

#include "../support.h"

#include "app/pendant.h"
#include "veltrixwidgetfoundation.h"

#include "useraccounts.h"
#include "veltrixdatabase.h"

#include <QTemporaryDir>

struct RunningPendant {
    /// An administrator, stored by an earlier run: call it before start(), which begins locked
    /// then.
    bool addUser(const QString &name, const QString &password)
    {
        UserAccounts *accounts = UserAccounts::getInstance();
        accounts->setHashCost(1, 8192);
        if (!VeltrixDatabase::getInstance()->open(data.path()))
            return false;
        accounts->start(true);
        QString error;
        const bool good = accounts->add(name, AUTHORITY_ADMINISTRATOR, password, &error);
        VeltrixDatabase::getInstance()->close();
        return good;
    }

    /// Starts in Chinese with its embedded controller, shows the window and waits for the link.
    bool start()
    {
        Options options;
        options.dataDirectory = data.path();
        options.language = QStringLiteral("zh");
        options.switchLasts = 600000; // however long the machine lets the test wait
        QString error;
        if (!pendant.start(options, &error)) {
            qWarning("%s", qPrintable(error));
            return false;
        }
        pendant.window()->show();
        return QTest::qWaitFor([] { return Robot::getInstance()->isConnected(); });
    }

    QTemporaryDir data;
    QTemporaryDir pictures;
    Pendant pendant;
};
