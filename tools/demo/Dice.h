#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string_view>

namespace rovanta::demo {

/// Random numbers that are the same on every machine for the same seed; the standard library's distributions are not.
class Dice {
public:
    /// `subject` gives each part of the demo a sequence of its own, so that a change in one leaves the others alone.
    Dice(std::uint64_t seed, std::string_view subject) : state(seed)
    {
        for (const char letter : subject)
            state = (state ^ static_cast<unsigned char>(letter)) * 0x100000001b3;
        Next();
    }

    /// A whole number from `low` to `high`, both included.
    int Between(int low, int high)
    {
        if (high < low)
            throw std::logic_error("Dice::Between needs low <= high");
        return low + static_cast<int>(Next() % static_cast<std::uint64_t>(high - low + 1));
    }

    /// True in `percent` of a hundred cases.
    bool Chance(int percent) { return Between(1, 100) <= percent; }

    /// One of the entries of a list.
    template <class List>
    const auto& Pick(const List& list)
    {
        return list[static_cast<std::size_t>(Between(0, static_cast<int>(std::size(list)) - 1))];
    }

    /// The position of one of the weights, each as likely as its share of their sum.
    std::size_t Weighted(std::initializer_list<int> weights)
    {
        int sum = 0;
        for (const int weight : weights)
            sum += weight;
        int rest = Between(1, sum);
        std::size_t position = 0;
        for (const int weight : weights) {
            rest -= weight;
            if (rest <= 0)
                break;
            ++position;
        }
        return position;
    }

private:
    std::uint64_t Next()
    {
        state += 0x9e3779b97f4a7c15;
        std::uint64_t mixed = state;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111eb;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t state;
};

}
