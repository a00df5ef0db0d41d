#include "app.h"

#include "eventlog.h"
#include "helpers.h"
#include "snackbarmessage.h"

#include <QCoreApplication>

int App::currentAction_ = 0;
int App::mainPage_ = 2;
int App::secondPage_ = 28;
AUTHORITY App::sysUser = AUTHORITY_NONE;
bool App::locked_ = false;
bool App::isDeg = true;
bool App::isSendLargeData_ = false;
QString App::xmlName;
bool App::DCAll_In_One = false;
int App::m_Select_IO_Type = 0;

namespace {

/// What an action asks for. The labels are the pages' own texts, so their translation stands in the
/// pages' context.
struct Right {
    const char *label;
    AUTHORITY least;
};

const Right kRights[] = {
    {QT_TRANSLATE_NOOP("TechnologyWidget", "码垛工艺"), AUTHORITY_OPERATOR},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "传送带跟踪工艺"), AUTHORITY_OPERATOR},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "打磨工艺"), AUTHORITY_OPERATOR},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "喷涂工艺"), AUTHORITY_OPERATOR},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "专用工艺"), AUTHORITY_OPERATOR},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "激光切割设置"), AUTHORITY_TECHNICIAN},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "焊接设置"), AUTHORITY_TECHNICIAN},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "视觉设置"), AUTHORITY_TECHNICIAN},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "电批工艺"), AUTHORITY_TECHNICIAN},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "删除程序"), AUTHORITY_TECHNICIAN},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "修改程序"), AUTHORITY_TECHNICIAN},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "xml文件导入"), AUTHORITY_ADMINISTRATOR},
};

QString refusalText(AUTHORITY user, const QString &label, AUTHORITY least)
{
    if (App::locked_)
        return QCoreApplication::translate("App", "屏幕已锁定，不能操作：%1").arg(label);
    if (user == AUTHORITY_NONE)
        return QCoreApplication::translate("App", "请先登录（需要%2）：%1")
            .arg(label, App::roleName(least));
    return QCoreApplication::translate("App", "权限不足：%1需要%2权限")
        .arg(label, App::roleName(least));
}

} // namespace

AUTHORITY App::requiredRole(const QString &label)
{
    for (const Right &right : kRights) {
        if (label == QString::fromUtf8(right.label)
            || label == QCoreApplication::translate("TechnologyWidget", right.label))
            return right.least;
    }
    return AUTHORITY_ADMINISTRATOR;
}

QString App::roleName(AUTHORITY role)
{
    switch (role) {
    case AUTHORITY_OPERATOR:
        return QCoreApplication::translate("App", "操作员");
    case AUTHORITY_TECHNICIAN:
        return QCoreApplication::translate("App", "技术员");
    case AUTHORITY_ADMINISTRATOR:
        return QCoreApplication::translate("App", "管理员");
    case AUTHORITY_NONE:
        break;
    }
    return QCoreApplication::translate("App", "未登录");
}

bool App::ForbidOperatorAuthority(AUTHORITY user, const QString &label)
{
    const AUTHORITY least = requiredRole(label);
    const bool granted = !locked_ && user != AUTHORITY_NONE && user >= least;
    EventLog::getInstance()->record(QStringLiteral("rights"), {label, granted});
    if (!granted)
        SnackbarMessage::showMessage(refusalText(user, label, least), 3000, 3, true);
    return granted;
}

bool App::canDoOperate()
{
    return !locked_ && !isInDelay();
}

bool App::isInCurrentInterface(int mainPage, int secondPage)
{
    return mainPage_ == mainPage && secondPage_ == secondPage;
}
