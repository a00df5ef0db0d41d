#pragma once

class Operator;
class QString;

/// Makes an administrator, locks the pendant and logs in again, by touches of keys and letters
/// alone. The account is in memory only and gone with the program.
class LockTour {
public:
    explicit LockTour(Operator &hand) : m_operator(hand) { }

    /// From the top menu to the users' page, which stays open. Call it once, where there is no
    /// account.
    bool makeUser();
    /// From any page and back to it: a wrong password, the pause, the right one. `language` is for
    /// the names of the pictures.
    bool walk(const QString &language);

private:
    Operator &m_operator;
};
