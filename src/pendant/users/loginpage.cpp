#include "loginpage.h"

#include "inputgate.h"
#include "lineeditwidget.h"
#include "linklamp.h"
#include "useraccounts.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kTouchHeight = 46;
constexpr int kFieldWidth = 300;
constexpr int kLabelWidth = 130;

LineEditWidget *passwordField(const QString &name, QWidget *parent)
{
    auto *field = new LineEditWidget(parent);
    field->setObjectName(name);
    field->setEchoMode(QLineEdit::Password);
    field->setFixedSize(kFieldWidth, kTouchHeight);
    field->setMaxLength(UserAccounts::kMaximumPassword);
    return field;
}

} // namespace

LoginPage::LoginPage(QWidget *window)
    : QWidget(window), m_heading(new QLabel(this)), m_userLabel(new QLabel(this)),
      m_user(new QComboBox(this)), m_passwordLabel(new QLabel(this)),
      m_password(passwordField(QStringLiteral("logInPassword"), this)),
      m_repeatLabel(new QLabel(this)), m_repeat(passwordField(QStringLiteral("logInRepeat"), this)),
      m_message(new QLabel(this)), m_enter(new QPushButton(this)), m_lamp(new LinkLamp(this)),
      m_simulated(new SimulatedMark(this)), m_wait(new QTimer(this))
{
    hide();
    setObjectName(QStringLiteral("loginPage"));
    m_heading->setObjectName(QStringLiteral("logInHeading"));
    QFont large = m_heading->font();
    large.setPointSize(20);
    m_heading->setFont(large);
    m_user->setObjectName(QStringLiteral("logInUser"));
    m_user->setFixedSize(kFieldWidth, kTouchHeight);
    m_message->setObjectName(QStringLiteral("logInMessage"));
    m_message->setWordWrap(true);
    m_message->setMinimumHeight(kTouchHeight);
    m_message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_enter->setObjectName(QStringLiteral("logInEnter"));
    m_enter->setFixedSize(kFieldWidth, 52);
    m_enter->setDefault(true);
    m_lamp->setFixedSize(80, 46);
    m_simulated->setFixedSize(78, 44);

    auto *fields = new QGridLayout;
    fields->setHorizontalSpacing(12);
    fields->setVerticalSpacing(10);
    fields->addWidget(m_userLabel, 0, 0, Qt::AlignRight | Qt::AlignVCenter);
    fields->addWidget(m_user, 0, 1);
    fields->addWidget(m_passwordLabel, 1, 0, Qt::AlignRight | Qt::AlignVCenter);
    fields->addWidget(m_password, 1, 1);
    fields->addWidget(m_repeatLabel, 2, 0, Qt::AlignRight | Qt::AlignVCenter);
    fields->addWidget(m_repeat, 2, 1);
    fields->addWidget(m_message, 3, 1);
    fields->addWidget(m_enter, 4, 1);
    // As wide as the labels, so that the fields stand in the middle.
    fields->setColumnMinimumWidth(0, kLabelWidth);
    fields->setColumnMinimumWidth(2, kLabelWidth);
    auto *marks = new QVBoxLayout;
    marks->addWidget(m_lamp);
    marks->addWidget(m_simulated);
    marks->addStretch(1);
    auto *page = new QGridLayout(this);
    page->setContentsMargins(4, 4, 4, 4);
    page->addWidget(m_heading, 0, 0, Qt::AlignHCenter | Qt::AlignBottom);
    page->addLayout(fields, 1, 0, Qt::AlignHCenter | Qt::AlignTop);
    page->addLayout(marks, 0, 1, 2, 1);
    page->setColumnStretch(0, 1);
    page->setRowMinimumHeight(0, 110);
    page->setRowStretch(1, 1);
    page->setVerticalSpacing(24);

    UserAccounts *accounts = UserAccounts::getInstance();
    connect(accounts, &UserAccounts::lockedChanged, this, &LoginPage::refresh);
    connect(accounts, &UserAccounts::accountsChanged, this, &LoginPage::refreshUsers);
    connect(accounts, &UserAccounts::userChanged, this, [this, accounts] {
        if (!accounts->currentUser().isEmpty())
            m_lastUser = accounts->currentUser();
    });
    connect(m_enter, &QPushButton::clicked, this, &LoginPage::submit);
    connect(m_password, &QLineEdit::returnPressed, this, [this] {
        if (m_repeat->isVisible())
            m_repeat->setFocus();
        else
            submit();
    });
    connect(m_repeat, &QLineEdit::returnPressed, this, &LoginPage::submit);
    connect(m_user, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        m_password->clear();
        m_message->clear();
        m_wrong = false;
        refreshWait();
    });
    // A question that comes up meanwhile waits below the lock screen.
    connect(InputGate::getInstance(), &InputGate::restrictionChanged, this, &LoginPage::stayOnTop);
    m_wait->setInterval(250);
    connect(m_wait, &QTimer::timeout, this, &LoginPage::refreshWait);
    window->installEventFilter(this);
    retranslate();
    refresh();
}

LoginPage::~LoginPage()
{
    InputGate::getInstance()->release(this);
}

void LoginPage::setEmbeddedController(bool embedded)
{
    m_simulated->setEmbedded(embedded);
}

void LoginPage::refresh()
{
    m_password->clear();
    m_repeat->clear();
    m_message->clear();
    m_wrong = false;
    if (!App::locked_) {
        m_wait->stop();
        InputGate::getInstance()->release(this);
        hide();
        return;
    }
    retranslate();
    refreshUsers();
    InputGate::getInstance()->restrictTo(this);
    setGeometry(parentWidget()->rect());
    show();
    raise();
    m_password->setFocus();
    refreshWait();
}

void LoginPage::stayOnTop()
{
    InputGate *gate = InputGate::getInstance();
    if (!App::locked_ || gate->allows(this))
        return;
    gate->restrictTo(this);
    QTimer::singleShot(0, this, &QWidget::raise);
}

void LoginPage::refreshUsers()
{
    const QString chosen = isVisible() ? m_user->currentText() : m_lastUser;
    const QSignalBlocker quiet(m_user);
    m_user->clear();
    m_user->addItems(UserAccounts::getInstance()->names());
    m_user->setCurrentIndex(qMax(0, m_user->findText(chosen)));
}

void LoginPage::refreshWait()
{
    const int seconds = App::locked_ && UserAccounts::getInstance()->hasAccounts()
        ? UserAccounts::getInstance()->waitSeconds(m_user->currentText())
        : 0;
    const bool waited = !m_enter->isEnabled();
    m_enter->setEnabled(seconds == 0);
    if (seconds > 0)
        m_wait->start();
    else
        m_wait->stop();
    if (seconds > 0 || waited || m_wrong)
        m_message->setText(waitText(seconds));
}

/// What is said of a wrong password or of the pause after one that was wrong before.
QString LoginPage::waitText(int seconds) const
{
    if (!m_wrong)
        return seconds > 0 ? tr("请等待 %1 秒后再试").arg(seconds) : tr("请输入密码");
    const QString warning = UserAccounts::getInstance()->countWarning();
    const QString text = seconds > 0 ? tr("密码错误。请等待 %1 秒后再试").arg(seconds)
                                     : tr("密码错误。请重新输入密码");
    return warning.isEmpty() ? text : text + QLatin1Char('\n') + warning;
}

void LoginPage::submit()
{
    if (!m_enter->isEnabled())
        return;
    if (UserAccounts::getInstance()->needsFirstPassword())
        setFirstPassword();
    else
        logIn();
}

void LoginPage::setFirstPassword()
{
    if (m_password->text() != m_repeat->text()) {
        m_message->setText(tr("两次输入的密码不一致"));
        return;
    }
    QString error;
    if (!UserAccounts::getInstance()->setFirstPassword(m_password->text(), &error))
        m_message->setText(error);
}

void LoginPage::logIn()
{
    const UserAccounts::LogIn result =
        UserAccounts::getInstance()->logIn(m_user->currentText(), m_password->text());
    if (result == UserAccounts::LogIn::Good)
        return;
    m_password->clear();
    m_wrong = result == UserAccounts::LogIn::WrongPassword;
    if (result == UserAccounts::LogIn::UnknownUser)
        m_message->setText(tr("没有这个用户"));
    refreshWait();
}

void LoginPage::retranslate()
{
    const bool first = UserAccounts::getInstance()->needsFirstPassword();
    m_heading->setText(first ? tr("首次启动：请设置管理员密码") : tr("屏幕已锁定，请登录"));
    m_userLabel->setText(tr("用户"));
    m_passwordLabel->setText(first ? tr("新密码") : tr("密码"));
    m_repeatLabel->setText(tr("再次输入"));
    m_enter->setText(first ? tr("设置密码并进入") : tr("登录"));
    m_password->setAccessibleName(m_passwordLabel->text());
    m_repeat->setAccessibleName(m_repeatLabel->text());
    m_userLabel->setVisible(!first);
    m_user->setVisible(!first);
    m_repeatLabel->setVisible(first);
    m_repeat->setVisible(first);
    if (first && m_message->text().isEmpty())
        m_message->setText(tr("至少 %1 个字符，用户名为 %2")
                               .arg(UserAccounts::kMinimumPassword)
                               .arg(UserAccounts::firstAdministrator()));
}

bool LoginPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

void LoginPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        m_message->clear();
        retranslate();
        refreshWait();
    }
    QWidget::changeEvent(event);
}

void LoginPage::paintEvent(QPaintEvent *)
{
    // Opaque, so that nothing of the page below can be read.
    QPainter(this).fillRect(rect(), palette().color(QPalette::Window));
}
