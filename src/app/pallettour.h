#pragma once

#include <QString>
#include <QVector>

class Operator;

/// Sets up craft 2 in complete mode, page after page, teaching with the arm; then opens its pages
/// again and finds there what was entered. Leaves one picture of each page while it is edited and
/// one of what the controller kept.
class PalletTour {
public:
    explicit PalletTour(Operator &hand);

    /// Begins and ends on the top menu, with the arm about where it was.
    bool walk();

private:
    bool setMode();
    bool chooseGrippers();
    bool teachTray();
    bool teachPositions();
    bool setWorkpiece();
    bool setApproach();
    bool setLayers();
    bool readExplanations();
    bool setGraphics();

    bool findGrippersAndTray();
    bool findPositions();
    bool findWorkpieceAndApproach();
    bool findLayers();
    bool findGraphics();

    bool enable();
    bool jog(const char *key);
    bool mark(int point);
    bool driveTo(int point);
    bool answer(const QString &pictureName);
    bool turn(const char *switchName, bool on);
    /// Takes a picture of the edited page and saves it.
    bool save(const char *page, const char *modifyButton);

    Operator &m_operator;
    QVector<QVector<double>> m_taught; ///< the three points in the order of the page: x, y, z in mm
};
