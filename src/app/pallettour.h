#pragma once

class Operator;

/// Sets up a palletising craft in complete mode, page after page.
class PalletTour {
public:
    explicit PalletTour(Operator &hand);

    /// Begins and ends on the top menu.
    bool walk();

private:
    Operator &m_operator;
};
