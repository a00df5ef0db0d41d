#include "link/reads.h"

#include "morerobot.h"
#include "robot.h"

#include <QObject>
#include <algorithm>
#include <vector>

namespace {

/// Far more than are under way at once, also with a slow controller.
constexpr std::size_t kMost = 1000;

struct Read {
    int robot; ///< that was worked with
    wire::reply::Id answer;
    reads::Numbers numbers;
    bool bySelection;
    bool isPassedOver; ///< a later one was answered before it
};

/// The reads without an answer, in the order in which they were asked.
struct Unanswered {
    Unanswered();

    std::vector<Read> reads;
    int selections = 0; ///< that are on their way right now
};

Unanswered::Unanswered()
{
    Robot *robot = Robot::getInstance();
    QObject::connect(robot, &Robot::linkChanged, robot, [this](Robot::Link link) {
        if (link != Robot::Link::Connected)
            reads.clear();
    });
    QObject::connect(
        MoreRobot::getInstance(), &MoreRobot::currentRobotChanged, robot, [this](int number) {
            const auto isOfAnother = [number](const Read &read) { return read.robot != number; };
            reads.erase(std::remove_if(reads.begin(), reads.end(), isOfAnother), reads.end());
        });
}

Unanswered &unanswered()
{
    // Never deleted, like the robot that it follows.
    static auto *const instance = new Unanswered;
    return *instance;
}

} // namespace

namespace reads {

Selection::Selection()
{
    ++unanswered().selections;
}

Selection::~Selection()
{
    --unanswered().selections;
}

void note(wire::reply::Id answer, const Numbers &numbers)
{
    Unanswered &open = unanswered();
    if (!Robot::getInstance()->isConnected())
        return;
    if (open.reads.size() >= kMost)
        open.reads.erase(open.reads.begin());
    open.reads.push_back(
        {MoreRobot::getCurrentRobot(), answer, numbers, open.selections > 0, false});
}

bool areOpen()
{
    const std::vector<Read> &open = unanswered().reads;
    return std::any_of(open.begin(), open.end(),
                       [](const Read &read) { return !read.isPassedOver; });
}

bool answersSelection(wire::reply::Id answer, const Numbers &numbers, bool isLast)
{
    std::vector<Read> &open = unanswered().reads;
    const auto asks = [&](const Read &read) {
        return read.answer == answer && read.numbers == numbers;
    };
    auto read = std::find_if(open.begin(), open.end(),
                             [&](const Read &each) { return asks(each) && !each.isPassedOver; });
    if (read == open.end())
        read = std::find_if(open.begin(), open.end(), asks);
    if (read == open.end())
        return false;
    const bool bySelection = read->bySelection;
    std::for_each(open.begin(), read,
                  [&](Read &earlier) { earlier.isPassedOver |= earlier.answer == answer; });
    if (isLast) // those of the number that were passed over go with it
        open.erase(std::remove_if(open.begin(), read + 1, asks), read + 1);
    return bySelection;
}

} // namespace reads
