#pragma once

#include <QString>

/// The role of the user who is logged in; a higher role may do all that a lower one may.
enum AUTHORITY {
    AUTHORITY_NONE = 0, ///< nobody is logged in
    AUTHORITY_OPERATOR = 1,
    AUTHORITY_TECHNICIAN = 2,
    AUTHORITY_ADMINISTRATOR = 3
};

/// What the whole pendant application knows of its state.
class App {
public:
    static int currentAction_; ///< what the prompt on screen is about; 0: nothing is pending
    static int mainPage_; ///< main area that is shown; 2: the process pages, 8: the journal, 9: the
                          ///< users, 10: the jobs
    static int secondPage_; ///< page within it; 28: process menu, 29: projects, 30: point page
    static AUTHORITY sysUser; ///< role of the current user
    static bool locked_; ///< the lock screen is up: no operator action is taken
    static bool isDeg; ///< angles are shown in degrees; the controller's unit is the radian
    static bool isSendLargeData_; ///< a large transfer is under way
    static QString xmlName; ///< name of the current special-process project
    static bool DCAll_In_One; ///< reduced device: only the special process is offered
    static int m_Select_IO_Type; ///< IO board type that the controller reports; 0: none

    /// Whether `user` may do what `label` names (the translated text of the action). A refusal
    /// tells the user so by itself.
    static bool ForbidOperatorAuthority(AUTHORITY user, const QString &label);

    /// The least role that may do what `label` names, in the source language or translated; a label
    /// that is in no list asks for the administrator.
    static AUTHORITY requiredRole(const QString &label);
    /// The role's name for the screen.
    static QString roleName(AUTHORITY role);

    /// False while the application takes no operator actions: locked, or waiting in Delayms().
    static bool canDoOperate();

    /// Whether the pages `mainPage` and `secondPage` are the ones shown.
    static bool isInCurrentInterface(int mainPage, int secondPage);
};
