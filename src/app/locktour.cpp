#include "app/locktour.h"

#include "app/operator.h"
#include "app/pendant.h"
#include "useraccounts.h"
#include "veltrixdatabase.h"
#include "veltrixwidgetfoundation.h"

#include <QPushButton>

namespace {

const QString kName = QStringLiteral("tour");
const QString kPassword = QStringLiteral("Tour-2468");

} // namespace

bool LockTour::makeUser()
{
    // What is entered from here on does not reach the file, or the tour would lock its data.
    VeltrixDatabase::getInstance()->close();
    return m_operator.touch(QStringLiteral("areaUsers"))
        && m_operator.write(QStringLiteral("userName"), kName)
        && m_operator.write(QStringLiteral("userPassword"), kPassword)
        && m_operator.write(QStringLiteral("userRepeat"), kPassword)
        && m_operator.touch(QStringLiteral("userAdd"))
        && (UserAccounts::getInstance()->currentUser() == kName
            || m_operator.fail(QStringLiteral("no account was made")));
}

bool LockTour::walk(const QString &language)
{
    UserAccounts *accounts = UserAccounts::getInstance();
    if (!m_operator.touch(QStringLiteral("lockButton")))
        return false;
    m_operator.picture(QStringLiteral("locked-") + language);
    // The keyboard's own key logs in.
    if (!m_operator.write(QStringLiteral("logInPassword"), QStringLiteral("guess-135")))
        return false;
    m_operator.picture(QStringLiteral("log-in-refused-") + language);
    const auto *enter =
        m_operator.pendant().window()->findChild<QPushButton *>(QStringLiteral("logInEnter"));
    if (!m_operator.waitFor(QStringLiteral("the pause after a wrong password to end"),
                            [enter] { return enter->isEnabled(); })
        || !m_operator.write(QStringLiteral("logInPassword"), kPassword))
        return false;
    if (accounts->isLocked())
        return m_operator.fail(QStringLiteral("the password does not open the lock"));
    m_operator.picture(QStringLiteral("logged-in-") + language);
    return true;
}
