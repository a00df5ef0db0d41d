#include "useraccounts.h"

#include "eventlog.h"
#include "printlog.h"
#include "veltrixdatabase.h"

#include <QDateTime>

#include <sodium.h>

#include <algorithm>
#include <chrono>

namespace {

constexpr int kMostFailures = 1000000; // counted

using Account = VeltrixDatabase::Account;

const Account *find(const QString &name)
{
    for (const Account &account : VeltrixDatabase::getInstance()->accounts()) {
        if (account.name == name)
            return &account;
    }
    return nullptr;
}

bool nameTaken(const QString &name)
{
    const QVector<Account> &accounts = VeltrixDatabase::getInstance()->accounts();
    return std::any_of(accounts.begin(), accounts.end(), [&](const Account &account) {
        return account.name.compare(name, Qt::CaseInsensitive) == 0;
    });
}

/// The same text typed on two keyboards may differ in its composed characters; the hash must not.
QByteArray passwordBytes(const QString &password)
{
    return password.normalized(QString::NormalizationForm_C).toUtf8();
}

bool matches(const Account &account, const QString &password)
{
    QByteArray bytes = passwordBytes(password);
    const bool good = crypto_pwhash_str_verify(account.passwordHash.constData(), bytes.constData(),
                                               static_cast<unsigned long long>(bytes.size()))
        == 0;
    sodium_memzero(bytes.data(), static_cast<std::size_t>(bytes.size()));
    return good;
}

qint64 steadyMilliseconds()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

/// Seconds of pause after so many failures: 1, 2, 4, ... up to the longest one.
qint64 pauseSeconds(int failures)
{
    if (failures <= 0)
        return 0;
    return failures > 9
        ? UserAccounts::kLongestPause
        : std::min<qint64>(qint64(1) << (failures - 1), UserAccounts::kLongestPause);
}

bool refuse(QString *error, const QString &text)
{
    if (error)
        *error = text;
    return false;
}

bool goodPassword(const QString &password, QString *error)
{
    if (password.isEmpty())
        return refuse(error, UserAccounts::tr("密码不能为空"));
    // As the operator counts them: an accent does not count by itself.
    const auto characters = password.normalized(QString::NormalizationForm_C).toUcs4().size();
    if (characters < UserAccounts::kMinimumPassword)
        return refuse(
            error, UserAccounts::tr("密码至少需要 %1 个字符").arg(UserAccounts::kMinimumPassword));
    if (characters > UserAccounts::kMaximumPassword)
        return refuse(error,
                      UserAccounts::tr("密码最多 %1 个字符").arg(UserAccounts::kMaximumPassword));
    return true;
}

bool goodName(const QString &name, QString *error)
{
    if (name.isEmpty())
        return refuse(error, UserAccounts::tr("用户名不能为空"));
    if (name.size() > UserAccounts::kMaximumName)
        return refuse(error,
                      UserAccounts::tr("用户名最多 %1 个字符").arg(UserAccounts::kMaximumName));
    if (std::any_of(name.begin(), name.end(), [](QChar c) { return !c.isPrint(); }))
        return refuse(error, UserAccounts::tr("用户名含有不可显示的字符"));
    if (nameTaken(name))
        return refuse(error, UserAccounts::tr("用户 %1 已存在").arg(name));
    return true;
}

bool goodRole(AUTHORITY role, QString *error)
{
    if (role < AUTHORITY_OPERATOR || role > AUTHORITY_ADMINISTRATOR)
        return refuse(error, UserAccounts::tr("请选择权限"));
    return true;
}

/// `detail` is for the journal alone: what does not depend on the language.
void note(const QString &operation, const QString &name, const QString &text, int level,
          const QVariant &detail = {})
{
    QVariantList values{operation, name};
    if (detail.isValid())
        values.append(detail);
    EventLog::getInstance()->record(QStringLiteral("config"), values);
    PrintLog::OutputToLog(text, level);
}

bool store(const Account &account, QString *error)
{
    return VeltrixDatabase::getInstance()->saveAccount(account)
        || refuse(error, UserAccounts::tr("配置数据库无法写入"));
}

} // namespace

UserAccounts::UserAccounts(QObject *parent)
    : QObject(parent), m_clock(&steadyMilliseconds), m_passes(crypto_pwhash_OPSLIMIT_INTERACTIVE),
      m_bytes(crypto_pwhash_MEMLIMIT_INTERACTIVE)
{
    if (sodium_init() < 0)
        PrintLog::OutputToLog(tr("密码库无法初始化"), 3);
}

UserAccounts *UserAccounts::getInstance()
{
    static UserAccounts *const instance = new UserAccounts;
    return instance;
}

void UserAccounts::setClock(std::function<qint64()> clock)
{
    m_clock = clock ? std::move(clock) : &steadyMilliseconds;
}

void UserAccounts::setHashCost(unsigned long long passes, std::size_t bytes)
{
    m_passes = passes;
    m_bytes = bytes;
}

void UserAccounts::start(bool embeddedController)
{
    m_current.clear();
    m_failures.clear();
    m_countStored = true;
    for (const Account &account : VeltrixDatabase::getInstance()->accounts()) {
        if (account.failures > 0)
            m_failures.insert(account.name, {account.failures, m_clock()});
    }
    const bool open =
        embeddedController && !hasAccounts() && !VeltrixDatabase::getInstance()->passwordRequired();
    App::locked_ = !open;
    App::sysUser = open ? AUTHORITY_ADMINISTRATOR : AUTHORITY_NONE;
    emit accountsChanged();
    emit userChanged();
    emit lockedChanged(App::locked_);
}

QStringList UserAccounts::names() const
{
    QStringList all;
    for (const Account &account : VeltrixDatabase::getInstance()->accounts())
        all += account.name;
    return all;
}

bool UserAccounts::hasAccounts() const
{
    return !VeltrixDatabase::getInstance()->accounts().isEmpty();
}

AUTHORITY UserAccounts::role(const QString &name) const
{
    const Account *account = find(name);
    return account ? static_cast<AUTHORITY>(account->role) : AUTHORITY_NONE;
}

QString UserAccounts::currentUserText() const
{
    if (App::sysUser == AUTHORITY_NONE)
        return App::roleName(AUTHORITY_NONE);
    if (m_current.isEmpty())
        return tr("%1（未设密码）").arg(App::roleName(App::sysUser));
    return tr("%1（%2）").arg(m_current, App::roleName(App::sysUser));
}

bool UserAccounts::setFirstPassword(const QString &password, QString *error)
{
    if (hasAccounts())
        return refuse(error, tr("管理员密码已设置"));
    if (!goodPassword(password, error))
        return false;
    Account account;
    account.name = firstAdministrator();
    account.role = AUTHORITY_ADMINISTRATOR;
    account.passwordHash = hashed(password);
    if (account.passwordHash.isEmpty())
        return refuse(error, tr("密码无法加密，内存不足"));
    if (!store(account, error))
        return false;
    note(QStringLiteral("firstPassword"), account.name, tr("已设置管理员密码"), 1);
    emit accountsChanged();
    enter(account.name, AUTHORITY_ADMINISTRATOR);
    return true;
}

UserAccounts::LogIn UserAccounts::logIn(const QString &name, const QString &password)
{
    if (!find(name)) {
        note(QStringLiteral("logInFailed"), name, tr("登录失败：没有用户 %1").arg(name), 2, 0);
        return LogIn::UnknownUser;
    }
    if (waitSeconds(name) > 0)
        return LogIn::Wait;
    if (!takes(name, password)) {
        const int count = m_failures.value(name).count;
        note(QStringLiteral("logInFailed"), name,
             tr("用户 %1 登录失败，连续第 %2 次").arg(name).arg(count), 2, count);
        return LogIn::WrongPassword;
    }
    note(QStringLiteral("logIn"), name, tr("用户 %1 登录").arg(name), 1);
    enter(name, role(name));
    return LogIn::Good;
}

bool UserAccounts::takes(const QString &name, const QString &password)
{
    const Account *known = find(name);
    const bool good = known && matches(*known, password);
    if (good) {
        m_failures.remove(name);
    } else {
        Failures &failures = m_failures[name];
        failures.count = std::min(failures.count + 1, kMostFailures);
        failures.last = m_clock();
    }
    storeCount(name, m_failures.value(name).count);
    return good;
}

void UserAccounts::storeCount(const QString &name, int count)
{
    m_countStored = true;
    const Account *known = find(name);
    if (!known || known->failures == count)
        return;
    Account account = *known;
    account.failures = count;
    account.lastFailure = count > 0 ? QDateTime::currentMSecsSinceEpoch() : 0;
    m_countStored = VeltrixDatabase::getInstance()->saveAccount(account);
    if (!m_countStored) {
        PrintLog::OutputToLog(
            tr("用户 %1 的登录失败次数（%2）无法保存，仅在本次运行中有效").arg(name).arg(count), 3);
    }
}

QString UserAccounts::countWarning() const
{
    return m_countStored ? QString() : tr("登录失败次数无法保存，请检查存储空间");
}

int UserAccounts::waitSeconds(const QString &name) const
{
    const auto known = m_failures.constFind(name);
    if (known == m_failures.constEnd())
        return 0;
    const qint64 left = known->last + 1000 * pauseSeconds(known->count) - m_clock();
    return static_cast<int>(std::max<qint64>(0, (left + 999) / 1000));
}

bool UserAccounts::lock()
{
    if (!hasAccounts())
        return false;
    if (App::locked_)
        return true;
    note(QStringLiteral("lock"), m_current, tr("屏幕锁定，用户 %1").arg(m_current), 1);
    m_current.clear();
    App::locked_ = true;
    App::sysUser = AUTHORITY_NONE;
    emit userChanged();
    emit lockedChanged(true);
    return true;
}

void UserAccounts::enter(const QString &name, AUTHORITY role)
{
    m_current = name;
    App::sysUser = role;
    const bool wasLocked = App::locked_;
    App::locked_ = false;
    emit userChanged();
    if (wasLocked)
        emit lockedChanged(false);
}

bool UserAccounts::mayManage(QString *error) const
{
    if (!App::locked_ && App::sysUser == AUTHORITY_ADMINISTRATOR)
        return true;
    EventLog::getInstance()->record(QStringLiteral("rights"), {tr("管理用户"), false});
    return refuse(error, tr("只有管理员可以管理用户"));
}

int UserAccounts::administrators() const
{
    const QVector<Account> &accounts = VeltrixDatabase::getInstance()->accounts();
    return static_cast<int>(
        std::count_if(accounts.begin(), accounts.end(), [](const Account &account) {
            return account.role == AUTHORITY_ADMINISTRATOR;
        }));
}

bool UserAccounts::add(const QString &name, AUTHORITY role, const QString &password, QString *error)
{
    if (!mayManage(error))
        return false;
    Account account;
    account.name = name.trimmed().normalized(QString::NormalizationForm_C);
    account.role = role;
    if (!goodName(account.name, error) || !goodRole(role, error) || !goodPassword(password, error))
        return false;
    const bool first = !hasAccounts();
    if (first && role != AUTHORITY_ADMINISTRATOR)
        return refuse(error, tr("第一个用户必须是管理员"));
    account.passwordHash = hashed(password);
    if (account.passwordHash.isEmpty())
        return refuse(error, tr("密码无法加密，内存不足"));
    if (!store(account, error))
        return false;
    note(QStringLiteral("userAdded"), account.name,
         tr("添加用户 %1（%2）").arg(account.name, App::roleName(role)), 1, int(role));
    emit accountsChanged();
    if (first)
        enter(account.name, role);
    return true;
}

bool UserAccounts::changeOwnPassword(const QString &oldPassword, const QString &password,
                                     QString *error)
{
    const QString name = m_current;
    if (App::locked_ || !find(name))
        return refuse(error, tr("请先登录"));
    if (!goodPassword(password, error))
        return false;
    if (const int seconds = waitSeconds(name))
        return refuse(error, tr("请等待 %1 秒后再试").arg(seconds));
    if (!takes(name, oldPassword)) {
        const int count = m_failures.value(name).count;
        note(QStringLiteral("oldPasswordWrong"), name,
             tr("用户 %1 修改密码时原密码错误，连续第 %2 次").arg(name).arg(count), 2, count);
        const QString warning = countWarning();
        return refuse(error,
                      tr("原密码错误。请等待 %1 秒后再试").arg(waitSeconds(name))
                          + (warning.isEmpty() ? QString() : QLatin1Char('\n') + warning));
    }
    return storePassword(name, password, error);
}

bool UserAccounts::changePassword(const QString &name, const QString &password, QString *error)
{
    if (!mayManage(error))
        return false;
    if (!find(name))
        return refuse(error, tr("没有用户 %1").arg(name));
    if (name == m_current)
        return refuse(error, tr("修改自己的密码需要原密码"));
    return goodPassword(password, error) && storePassword(name, password, error);
}

bool UserAccounts::storePassword(const QString &name, const QString &password, QString *error)
{
    Account account = *find(name);
    account.passwordHash = hashed(password);
    if (account.passwordHash.isEmpty())
        return refuse(error, tr("密码无法加密，内存不足"));
    account.failures = 0;
    account.lastFailure = 0;
    if (!store(account, error))
        return false;
    m_failures.remove(name);
    note(QStringLiteral("passwordChanged"), name, tr("修改用户 %1 的密码").arg(name), 1);
    emit accountsChanged();
    return true;
}

bool UserAccounts::changeRole(const QString &name, AUTHORITY role, QString *error)
{
    if (!mayManage(error))
        return false;
    const Account *known = find(name);
    if (!known)
        return refuse(error, tr("没有用户 %1").arg(name));
    if (!goodRole(role, error))
        return false;
    if (known->role == AUTHORITY_ADMINISTRATOR && role != AUTHORITY_ADMINISTRATOR
        && administrators() == 1)
        return refuse(error, tr("必须至少保留一个管理员"));
    Account account = *known;
    account.role = role;
    if (!store(account, error))
        return false;
    note(QStringLiteral("roleChanged"), name,
         tr("用户 %1 的权限改为%2").arg(name, App::roleName(role)), 1, int(role));
    emit accountsChanged();
    if (name == m_current)
        enter(name, role);
    return true;
}

bool UserAccounts::remove(const QString &name, QString *error)
{
    if (!mayManage(error))
        return false;
    const Account *known = find(name);
    if (!known)
        return refuse(error, tr("没有用户 %1").arg(name));
    if (known->role == AUTHORITY_ADMINISTRATOR && administrators() == 1)
        return refuse(error, tr("必须至少保留一个管理员"));
    if (name == m_current)
        return refuse(error, tr("不能删除当前用户"));
    if (!VeltrixDatabase::getInstance()->removeAccount(name))
        return refuse(error, tr("配置数据库无法写入"));
    m_failures.remove(name);
    note(QStringLiteral("userRemoved"), name, tr("删除用户 %1").arg(name), 1);
    emit accountsChanged();
    return true;
}

QByteArray UserAccounts::hashed(const QString &password) const
{
    QByteArray bytes = passwordBytes(password);
    char hash[crypto_pwhash_STRBYTES] = {};
    const bool good =
        crypto_pwhash_str(hash, bytes.constData(), static_cast<unsigned long long>(bytes.size()),
                          m_passes, m_bytes)
        == 0;
    sodium_memzero(bytes.data(), static_cast<std::size_t>(bytes.size()));
    return good ? QByteArray(hash) : QByteArray();
}
