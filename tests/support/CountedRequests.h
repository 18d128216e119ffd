#pragma once

#include "zentrel/Decompressor.h"
#include "zentrel/ServiceRig.h"

#include <array>
#include <cstdint>
#include <ctime>
#include <random>
#include <set>
#include <tuple>

// Sends real requests through the responder, and counts beside it what the 19 counters should say: from the
// requests, and from the bodies that come back.
class CountedRequests : public ServiceRig {
protected:
    // Counts, without the service's own arithmetic.
    struct Tally {
        std::uint64_t plain = 0, compressed = 0, cacheable = 0, hits = 0, misses = 0;
        std::uint64_t plainBytes = 0, compressedBytes = 0, unpackedBytes = 0;
        double cpuSeconds = 0;  // of this process meanwhile

        // The counters in their order; the first one is told by a clock of its own.
        std::array<double, 19> Counters(double processorTime) const
        {
            const auto d = [](std::uint64_t count) { return static_cast<double>(count); };
            const auto share = [&](std::uint64_t part, std::uint64_t whole) {
                return whole == 0 ? 0 : d(part) / d(whole) * 100;
            };
            const auto all = plain + compressed;
            const auto ratio = share(compressedBytes, unpackedBytes);
            return {processorTime,
                    d(plainBytes),
                    d(compressedBytes),
                    d(unpackedBytes),
                    d(plainBytes + unpackedBytes),
                    d(plainBytes + compressedBytes),
                    d(unpackedBytes) - d(compressedBytes),
                    ratio,
                    unpackedBytes == 0 ? 0 : 100 - ratio,
                    d(plain),
                    d(compressed),
                    share(compressed, all),
                    d(cacheable),
                    share(cacheable, all),
                    share(hits, all),
                    d(all),
                    d(misses),
                    d(hits),
                    share(hits, hits + misses)};
        }
    };

    void PutFiles()
    {
        Start();
        for (int i = 0; i < 5; ++i)
            WriteFile("page" + std::to_string(i) + ".html",
                      Page(300 + 9'000 * static_cast<std::size_t>(i), i));
        std::string noise(4'000, '\0');
        for (auto& c : noise) c = static_cast<char>(m_random());
        WriteFile("noise.txt", noise);  // grows when it is compressed
        WriteFile("photo.jpg", noise);
        WriteFile("small.txt", "small");
    }

    void Send(int requests)
    {
        const auto begun = ProcessorSeconds();
        for (int i = 0; i < requests; ++i) SendOne(kUrls[m_random() % std::size(kUrls)], m_random() % 4);
        for (auto* tally : {&shown, &lifetime}) tally->cpuSeconds += ProcessorSeconds() - begun;
    }

    void Reset()
    {
        ASSERT_TRUE(service->ResetCounters());
        shown = {};
    }

    Tally shown;     // since the last reset
    Tally lifetime;  // since ever

private:
    struct Url {
        const char* text;
        int status;
        bool isCacheable;  // for a client that takes a compressed body
        bool shrinks;
    };
    static constexpr Url kUrls[] = {
        {"/page0.html", 200, true, true},     {"/page1.html", 200, true, true},
        {"/page2.html", 200, true, true},     {"/page3.html", 200, true, true},
        {"/page4.html", 200, true, true},     {"/page4.html?q=1", 200, true, true},
        {"/page4.html?q=2", 200, true, true}, {"/noise.txt", 200, true, false},
        {"/photo.jpg", 200, false, false},    {"/small.txt", 200, false, false},
        {"/nothing.html", 404, false, false}, {"/../page0.html", 400, false, false},
    };

    static double ProcessorSeconds()
    {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
    }

    void SendOne(const Url& url, unsigned accepts)
    {
        const bool gzip = (accepts & 1U) != 0, deflate = (accepts & 2U) != 0;
        const auto response = Get(url.text, gzip, deflate);
        const bool isCacheable = url.isCacheable && (gzip || deflate);
        const bool isHit = isCacheable && url.shrinks && !m_seen.emplace(url.text, gzip).second;
        ASSERT_EQ(response.status, url.status) << url.text;
        ASSERT_EQ(response.fromCache, isHit) << url.text;
        ASSERT_EQ(response.encoding.has_value(), isCacheable && url.shrinks) << url.text;
        std::uint64_t unpacked = 0;
        if (response.encoding) {
            zentrel::Decompressor decompressor;
            ASSERT_TRUE(decompressor.BeginDecompress(0));
            unpacked = decompressor.DecompressBlock(response.body).value().size();
        }
        for (auto* tally : {&shown, &lifetime}) {
            ++(response.encoding ? tally->compressed : tally->plain);
            (response.encoding ? tally->compressedBytes : tally->plainBytes) += response.body.size();
            tally->unpackedBytes += unpacked;
            tally->cacheable += isCacheable;
            tally->hits += isHit;
            tally->misses += isCacheable && !isHit;
        }
    }

    std::mt19937 m_random{20261123};
    std::set<std::pair<std::string, bool>> m_seen;  // URL and whether as gzip, which is preferred
};
