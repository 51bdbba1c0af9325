// Google Benchmark's own table, and the limits that the times in it are held to.
#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

/** Prints the usual table and keeps the times of each benchmark, in seconds. */
class BestTimes : public benchmark::ConsoleReporter
{
public:
    BestTimes()
        : ConsoleReporter(OO_None)
    {
    }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            m_hasFailed = m_hasFailed || run.error_occurred || run.iterations == 0;
            const auto rounds = static_cast<double>(run.iterations);
            m_times[run.run_name.function_name].push_back(
                {run.real_accumulated_time / rounds, run.cpu_accumulated_time / rounds});
        }
    }

    /** True when a benchmark said that it went wrong. */
    bool hasFailed() const { return m_hasFailed; }

    /**
     * How much longer the first takes than the second, each divided by its number of songs. Of real
     * time, in which the machine may do other things, the pair of one round with the smallest ratio
     * counts; of processor time the best of each. True when both are within the limit.
     */
    bool printRatio(const char *what, const std::string &first, const std::string &second,
                    double limit, double songs = 1) const
    {
        const std::vector<Times> &one = m_times.at(first);
        const std::vector<Times> &other = m_times.at(second);
        double real = one.front().real / other.front().real;
        for (std::size_t round = 1; round < std::min(one.size(), other.size()); ++round)
            real = std::min(real, one[round].real / other[round].real);
        real /= songs;
        const double processor =
            best(one, &Times::processor) / best(other, &Times::processor) / songs;
        std::printf("%-44s (limit %.2f) real time %5.2f %s; processor time %5.2f %s\n", what, limit,
                    real, verdict(real, limit), processor, verdict(processor, limit));
        return real <= limit && processor <= limit;
    }

    /** True when the best real time of one round is within the limit, in seconds. */
    bool printTime(const char *what, const std::string &name, double limit) const
    {
        constexpr double milliseconds = 1000;
        const double time = best(m_times.at(name), &Times::real);
        std::printf("%-44s (limit %.3f ms) %.3f ms %s\n", what, limit * milliseconds,
                    time * milliseconds, verdict(time, limit));
        return time <= limit;
    }

private:
    struct Times {
        double real = 0;
        double processor = 0;
    };

    static const char *verdict(double value, double limit)
    {
        return value <= limit ? "ok" : "TOO SLOW";
    }

    static double best(const std::vector<Times> &times, double Times::*which)
    {
        double least = times.front().*which;
        for (const Times &time : times)
            least = std::min(least, time.*which);
        return least;
    }

    std::map<std::string, std::vector<Times>> m_times;
    bool m_hasFailed = false;
};
