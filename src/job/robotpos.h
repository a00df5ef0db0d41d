#pragma once

#include <QStringList>
#include <array>
#include <json/json.h>
#include <optional>
#include <string_view>

/// A position as a job holds it.
struct RobotPos {
    static constexpr int kValues = 14;

    /// The id word of the position `number` (0 to 65535) of a letter: the number in the low 16
    /// bits, the letter's code above them.
    static constexpr int wordOf(char letter, int number)
    {
        return (static_cast<unsigned char>(letter) << 16) | (number & 0xffff);
    }

    /// The id word of a position's name, "P1": one capital letter and a number without leading
    /// zeros; nothing for anything else.
    static std::optional<int> wordOf(std::string_view name);
    /// Whether an id word names a position: a capital letter and a number.
    static bool isWord(int word);
    /// The name of a position, "P1", by its id word; the bare number for a word that names none.
    static QString nameOf(int word);

    /// The position that fourteen texts make; nothing for any other count. A text that is no finite
    /// number counts as 0.
    static std::optional<RobotPos> fromTexts(const QStringList &texts);

    /// {"id": id, "kind": the letter, "values": [fourteen numbers]}
    Json::Value toJson() const;

    int id = 0;
    /// A position of a job has the Cartesian values in the first seven and the joints in the last
    /// seven. A point to run to has coordinate kind and flag in the first two, zeros for a joint
    /// point, and its values in the last seven: mm and radians; joints in degrees.
    std::array<double, kValues> values = {};
    unsigned char kind = 'P';
};
