#pragma once

#include "shell/coordinates.h"
#include "shell/pagetable.h"

#include <QHash>
#include <QVector>
#include <functional>
#include <initializer_list>
#include <utility>

class QLabel;
class QStackedWidget;
class QTimer;

/// A point on a page.
struct PointRow {
    enum Unit {
        Position, ///< x, y, z in mm and a, b, c, d in the unit that App::isDeg chooses
        Joints ///< J1 to J7 as the controller tells them
    };

    PositionTexts *texts = nullptr; ///< outlives the row
    QVector<QLabel *> labels; ///< seven; a model with fewer values leaves those behind alone
    Unit unit = Position;
};

/// Where the robot is, and sending it somewhere: what the pages with points share. It knows no page
/// but by its index; each package hands it its own timers, labels and hooks.
class LiveArm {
public:
    static constexpr int kInterval = 400; ///< milliseconds between two questions

    /// What a package does with a position that arrived: `kind` as axes::Coordinate, but any
    /// number that the controller sent.
    using Hook = std::function<void(int kind, const PositionTexts &position)>;

    /// `pages` is the stack that the page indices belong to.
    explicit LiveArm(QStackedWidget &pages) : m_pages(pages) { }

    // ---- Polls ----
    /// The timer asks for positions in that coordinate while one of its pages is in view.
    void addPoll(QTimer *timer, axes::Coordinate coordinate,
                 std::initializer_list<page::Index> pages);
    /// A page of another package that keeps the timer running as well.
    void addPage(QTimer *timer, page::Index page);
    /// Begins to ask, first after an interval.
    void start(QTimer *timer) const;
    /// The tick of a timer: asks where the robot is. The timer ends here, with its first tick on
    /// another page.
    void poll(QTimer *timer);
    /// The pages are in view again, behind another area of the main window: a page that polled
    /// before does so again, so that nobody marks where the robot was.
    void resume();

    // ---- The live position ----
    void addHook(Hook hook) { m_hooks.append(std::move(hook)); }
    /// A position arrived, once with radians and once with degrees: nine numbers separated by
    /// blanks, the second of which is the kind of coordinate. Another number of parts is no
    /// position.
    void take(const QByteArray &radians, const QByteArray &degrees) const;

    // ---- Points ----
    /// Puts the values that the robot has on the labels of a point, with three decimals. A robot
    /// whose positions are not shown leaves them as they are.
    static void show(const PositionTexts &position, const PointRow &row);
    /// A point becomes that position.
    static void mark(const PointRow &row, const PositionTexts &position);
    static void showNothing(const PointRow &row); ///< "--" on all labels

    // ---- Running to a point ----
    /// The first two values of a point to run to on that page follow the name of its first axis,
    /// axes::kPointHeads; on other pages they are those of Cartesian coordinates.
    void nameFirstAxis(page::Index page, std::function<QString()> name);
    /// Sends the robot to a taught point, unless its drives are off or the enabling switch is let
    /// go, which it says then. Of a position the values that nobody has told go as 0; joints with
    /// fewer than seven values are none. Whether the robot can be there is for the controller to
    /// say.
    void moveTo(const PointRow &row) const;
    /// To a position, seven values in mm and radians. Another number, or the enabling switch let
    /// go: nothing happens.
    void runToPosition(const QStringList &values) const;
    /// To a point given by its seven joints, likewise.
    void runToJoints(const QStringList &values) const;

    // ---- Columns ----
    enum class Columns {
        Point, ///< a, b, c and d of a point
        Head, ///< their headings: the first is called A, or U where it is the only one
        Tool ///< A, B and C of a tool frame, or their headings
    };
    /// Labels of orientation that stand side by side, from the first column on.
    void addColumns(Columns kind, const QVector<QLabel *> &labels);
    /// Shows and hides the columns by the robot's family; some families leave them as they are.
    void showColumns() const;

private:
    struct Poll {
        axes::Coordinate coordinate = axes::Cartesian;
        QVector<page::Index> pages;
    };
    struct ColumnLabels {
        Columns kind;
        QVector<QLabel *> labels;
    };

    QStackedWidget &m_pages;
    QHash<QTimer *, Poll> m_polls;
    QHash<QTimer *, int> m_hidden; ///< timers that ended while that page was out of sight
    QVector<Hook> m_hooks;
    QHash<int, std::function<QString()>> m_firstAxes; ///< by page
    QVector<ColumnLabels> m_columns;
};
