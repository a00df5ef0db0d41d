#include "userpage.h"

#include "idlelock.h"
#include "lineeditwidget.h"
#include "touchtable.h"
#include "useraccounts.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr int kTouchHeight = 42;
const int kIdleChoices[] = {0, 1, 5, 10, 30, 60}; // minutes
const AUTHORITY kRoles[] = {AUTHORITY_OPERATOR, AUTHORITY_TECHNICIAN, AUTHORITY_ADMINISTRATOR};

QPushButton *makeButton(const QString &name, QWidget *parent)
{
    auto *button = new QPushButton(parent);
    button->setObjectName(name);
    button->setMinimumHeight(kTouchHeight);
    return button;
}

LineEditWidget *makeField(const QString &name, int length, QWidget *parent)
{
    auto *field = new LineEditWidget(parent);
    field->setObjectName(name);
    field->setMaxLength(length);
    field->setMinimumHeight(kTouchHeight);
    return field;
}

} // namespace

UserPage::UserPage(QWidget *parent)
    : QWidget(parent), m_users(new QTableWidget(0, 2, this)), m_nameLabel(new QLabel(this)),
      m_name(makeField(QStringLiteral("userName"), UserAccounts::kMaximumName, this)),
      m_roleLabel(new QLabel(this)), m_role(new QComboBox(this)),
      m_oldPasswordLabel(new QLabel(this)),
      m_oldPassword(
          makeField(QStringLiteral("userOldPassword"), UserAccounts::kMaximumPassword, this)),
      m_passwordLabel(new QLabel(this)),
      m_password(makeField(QStringLiteral("userPassword"), UserAccounts::kMaximumPassword, this)),
      m_repeatLabel(new QLabel(this)),
      m_repeat(makeField(QStringLiteral("userRepeat"), UserAccounts::kMaximumPassword, this)),
      m_add(makeButton(QStringLiteral("userAdd"), this)),
      m_changePassword(makeButton(QStringLiteral("userChangePassword"), this)),
      m_changeRole(makeButton(QStringLiteral("userChangeRole"), this)),
      m_remove(makeButton(QStringLiteral("userRemove"), this)), m_idleLabel(new QLabel(this)),
      m_idle(new QComboBox(this)), m_message(new QLabel(this))
{
    setObjectName(QStringLiteral("userPage"));
    m_users->setObjectName(QStringLiteral("userTable"));
    setUpTouchTable(m_users, kTouchHeight);
    m_users->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_users->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_role->setObjectName(QStringLiteral("userRole"));
    m_role->setMinimumHeight(kTouchHeight);
    for (LineEditWidget *field : {m_oldPassword, m_password, m_repeat})
        field->setEchoMode(QLineEdit::Password);
    m_idle->setObjectName(QStringLiteral("idleMinutes"));
    m_idle->setMinimumHeight(kTouchHeight);
    m_message->setObjectName(QStringLiteral("userMessage"));
    m_message->setWordWrap(true);
    m_message->setMinimumHeight(kTouchHeight);

    auto *form = new QGridLayout;
    form->setHorizontalSpacing(8);
    form->setVerticalSpacing(8);
    QWidget *const rows[][2] = {{m_nameLabel, m_name},
                                {m_roleLabel, m_role},
                                {m_oldPasswordLabel, m_oldPassword},
                                {m_passwordLabel, m_password},
                                {m_repeatLabel, m_repeat}};
    int line = 0;
    for (const auto &row : rows) {
        form->addWidget(row[0], line, 0, Qt::AlignRight | Qt::AlignVCenter);
        form->addWidget(row[1], line++, 1);
    }
    form->setColumnStretch(1, 1);
    auto *buttons = new QGridLayout;
    buttons->setSpacing(8);
    buttons->addWidget(m_add, 0, 0);
    buttons->addWidget(m_changePassword, 0, 1);
    buttons->addWidget(m_changeRole, 1, 0);
    buttons->addWidget(m_remove, 1, 1);
    auto *idle = new QHBoxLayout;
    idle->addWidget(m_idleLabel);
    idle->addWidget(m_idle, 1);
    auto *right = new QVBoxLayout;
    right->addLayout(form);
    right->addSpacing(8);
    right->addLayout(buttons);
    right->addWidget(m_message);
    right->addStretch(1);
    right->addLayout(idle);
    auto *page = new QHBoxLayout(this);
    page->setContentsMargins(12, 12, 12, 12);
    page->setSpacing(16);
    page->addWidget(m_users, 5);
    page->addLayout(right, 6);

    UserAccounts *accounts = UserAccounts::getInstance();
    connect(accounts, &UserAccounts::accountsChanged, this, &UserPage::refresh);
    connect(accounts, &UserAccounts::userChanged, this, &UserPage::refresh);
    // What one user has typed is not for the next one.
    connect(accounts, &UserAccounts::userChanged, this, &UserPage::clearPasswords);
    connect(m_users, &QTableWidget::itemSelectionChanged, this, &UserPage::selectionChanged);
    connect(m_add, &QPushButton::clicked, this, &UserPage::addUser);
    connect(m_changePassword, &QPushButton::clicked, this, &UserPage::changePassword);
    connect(m_changeRole, &QPushButton::clicked, this, &UserPage::changeRole);
    connect(m_remove, &QPushButton::clicked, this, &UserPage::removeUser);
    connect(m_idle, QOverload<int>::of(&QComboBox::activated), this,
            [this] { IdleLock::setMinutes(m_idle->currentData().toInt()); });
    retranslate();
}

QString UserPage::selectedName() const
{
    const QList<QTableWidgetItem *> items = m_users->selectedItems();
    return items.isEmpty() ? QString() : m_users->item(items.first()->row(), 0)->text();
}

void UserPage::refresh()
{
    const UserAccounts *accounts = UserAccounts::getInstance();
    const QString selected = selectedName();
    const QStringList names = accounts->names();
    {
        const QSignalBlocker quiet(m_users);
        m_users->clearSelection();
        m_users->setRowCount(static_cast<int>(names.size()));
        for (int row = 0; row < m_users->rowCount(); ++row) {
            m_users->setItem(row, 0, new QTableWidgetItem(names[row]));
            m_users->setItem(row, 1,
                             new QTableWidgetItem(App::roleName(accounts->role(names[row]))));
            if (names[row] == selected)
                m_users->selectRow(row);
        }
    }
    if (names.isEmpty())
        m_role->setCurrentIndex(m_role->findData(int(AUTHORITY_ADMINISTRATOR)));
    askAgain(false);
    refreshRights();
}

void UserPage::refreshRights()
{
    const UserAccounts *accounts = UserAccounts::getInstance();
    const bool manages = App::sysUser == AUTHORITY_ADMINISTRATOR;
    const QString name = selectedName();
    const bool own = !name.isEmpty() && name == accounts->currentUser();
    m_name->setEnabled(manages);
    m_role->setEnabled(manages);
    m_add->setEnabled(manages);
    m_changeRole->setEnabled(manages && !name.isEmpty());
    m_remove->setEnabled(manages && !name.isEmpty());
    m_changePassword->setEnabled((manages || own) && !name.isEmpty());
    m_oldPassword->setEnabled(own);
    m_password->setEnabled(manages || own);
    m_repeat->setEnabled(manages || own);
    m_idle->setEnabled(manages);
}

void UserPage::selectionChanged()
{
    const QString name = selectedName();
    if (!name.isEmpty()) {
        m_name->setText(name);
        m_role->setCurrentIndex(m_role->findData(int(UserAccounts::getInstance()->role(name))));
    }
    m_message->clear();
    m_oldPassword->clear();
    askAgain(false);
    refreshRights();
}

QString UserPage::newPassword()
{
    if (m_password->text() == m_repeat->text())
        return m_password->text().isNull() ? QString(QLatin1String("")) : m_password->text();
    m_message->setText(tr("两次输入的密码不一致"));
    return {};
}

void UserPage::report(bool good, const QString &success, const QString &error)
{
    if (good)
        clearPasswords();
    m_message->setText(good ? success : error);
}

void UserPage::clearPasswords()
{
    m_oldPassword->clear();
    m_password->clear();
    m_repeat->clear();
}

void UserPage::addUser()
{
    const QString password = newPassword();
    if (password.isNull())
        return;
    QString error;
    const QString name = m_name->text().trimmed();
    const auto role = static_cast<AUTHORITY>(m_role->currentData().toInt());
    const bool good = UserAccounts::getInstance()->add(name, role, password, &error);
    report(good, tr("已添加用户 %1").arg(name), error);
}

void UserPage::changePassword()
{
    const QString password = newPassword();
    if (password.isNull())
        return;
    QString error;
    const QString name = selectedName();
    UserAccounts *accounts = UserAccounts::getInstance();
    const bool good = name == accounts->currentUser()
        ? accounts->changeOwnPassword(m_oldPassword->text(), password, &error)
        : accounts->changePassword(name, password, &error);
    m_oldPassword->clear();
    report(good, tr("已修改用户 %1 的密码").arg(name), error);
}

void UserPage::changeRole()
{
    QString error;
    const QString name = selectedName();
    const auto role = static_cast<AUTHORITY>(m_role->currentData().toInt());
    const bool good = UserAccounts::getInstance()->changeRole(name, role, &error);
    report(good, tr("用户 %1 的权限已改为%2").arg(name, App::roleName(role)), error);
}

void UserPage::removeUser()
{
    const QString name = selectedName();
    if (m_asked != name) {
        askAgain(true);
        return;
    }
    QString error;
    const bool good = UserAccounts::getInstance()->remove(name, &error);
    askAgain(false);
    report(good, tr("已删除用户 %1").arg(name), error);
}

void UserPage::askAgain(bool asking)
{
    m_asked = asking ? selectedName() : QString();
    m_remove->setText(asking ? tr("确认删除？") : tr("删除用户"));
    if (asking)
        m_message->setText(tr("再按一次删除用户 %1").arg(m_asked));
}

void UserPage::refillRoles()
{
    const QVariant chosen = m_role->currentData();
    const QSignalBlocker quiet(m_role);
    m_role->clear();
    for (const AUTHORITY role : kRoles)
        m_role->addItem(App::roleName(role), int(role));
    m_role->setCurrentIndex(qMax(0, m_role->findData(chosen)));
}

void UserPage::refillIdle()
{
    const QSignalBlocker quiet(m_idle);
    const int current = IdleLock::minutes();
    m_idle->clear();
    for (const int minutes : kIdleChoices)
        m_idle->addItem(minutes == 0 ? tr("从不") : tr("%1 分钟").arg(minutes), minutes);
    if (m_idle->findData(current) < 0)
        m_idle->addItem(tr("%1 分钟").arg(current), current);
    m_idle->setCurrentIndex(m_idle->findData(current));
}

void UserPage::retranslate()
{
    m_users->setHorizontalHeaderLabels({tr("用户名"), tr("权限")});
    m_nameLabel->setText(tr("用户名"));
    m_roleLabel->setText(tr("权限"));
    m_oldPasswordLabel->setText(tr("原密码"));
    m_oldPassword->setPlaceholderText(tr("修改自己的密码时"));
    m_passwordLabel->setText(tr("新密码"));
    m_repeatLabel->setText(tr("再次输入"));
    m_name->setAccessibleName(tr("用户名"));
    m_oldPassword->setAccessibleName(tr("原密码"));
    m_password->setAccessibleName(tr("新密码"));
    m_repeat->setAccessibleName(tr("再次输入"));
    m_add->setText(tr("添加用户"));
    m_changePassword->setText(tr("修改密码"));
    m_changeRole->setText(tr("修改权限"));
    m_idleLabel->setText(tr("无操作自动锁定"));
    m_message->clear();
    refillRoles();
    refillIdle();
    refresh();
}

void UserPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void UserPage::hideEvent(QHideEvent *event)
{
    clearPasswords();
    m_message->clear();
    askAgain(false);
    QWidget::hideEvent(event);
}
