#include "report.h"

#include <cstdio>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>

namespace bench {
namespace {

const char* const kGroupTitles[][2] = {
    {"size", "Size transforms (CSizeXForm)"},
    {"colour", "Colour transforms (CColorXForm), selected tier and each tier forced"},
    {"primitive", "Dispatched colour primitives, every tier"},
    {"mirror", "Mirror members, every tier"},
};

const Variant* BestPeer(const Row& row) {
    const Variant* best = nullptr;
    for (const Variant& peer : row.peers)
        if (peer.measured && (!best || peer.seconds < best->seconds)) best = &peer;
    return best;
}

std::string Micros(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", seconds * 1e6);
    return text;
}

std::string Ratio(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

// Peer time over Pixmoor time: above 1, Pixmoor is the faster.
std::string VersusPeer(const Variant& v, const Variant* peer) {
    return peer ? Ratio(peer->seconds / v.seconds) : "-";
}

// Pixmoor time over memcpy time: 1 is the speed of memory.
std::string VersusMemcpy(const Variant& v, const Row& row) {
    return row.memcpyLimit.measured ? Ratio(v.seconds / row.memcpyLimit.seconds) : "-";
}

std::string JsonString(const std::string& text) {
    std::string out = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        out += c;
    }
    return out + "\"";
}

std::string JsonVariant(const Variant& v) {
    std::ostringstream out;
    out << "{\"label\": " << JsonString(v.label);
    if (v.measured) out << ", \"us_per_frame\": " << Micros(v.seconds);
    out << ", \"ran\": " << (v.measured ? "true" : "false");
    if (v.failed) out << ", \"error\": \"did not run\"";
    if (v.unavailable) out << ", \"error\": " << JsonString(v.why.empty() ? "could not be set up" : v.why);
    out << "}";
    return out.str();
}

bool AnyMeasured(const Row& row) {
    for (const Variant& v : row.pixmoor)
        if (v.measured || v.failed) return true;
    return false;
}

// The rows of the largest frames and the fixed size pairs: the targets of
// the performance work, and the table the README shows.
bool InSummary(const Row& row) {
    const std::string largest = SizeLabel(kFrameSizes[2].width, kFrameSizes[2].height);
    return row.size.rfind(largest, 0) == 0 || (row.group == "size" && row.name.find("24 RG24") != std::string::npos);
}

void WriteTable(std::ostream& out, const RowList& rows, const RunFacts& facts, bool summaryOnly) {
    out << "Measured " << facts.date << " on " << facts.processor;
    if (!facts.selectedTier.empty()) out << "; PrimSelectBestTier picks " << facts.selectedTier;
    out << ". Times are processor time per frame in microseconds, the best of " << facts.repetitions
        << " repetitions.\n";
    for (const auto& group : kGroupTitles) {
        bool header = false;
        std::set<std::string> notes;
        for (const Row& row : rows) {
            if (row.group != group[0] || !AnyMeasured(row) || (summaryOnly && !InSummary(row))) continue;
            if (!header) {
                out << "\n#### " << group[1] << "\n\n"
                    << "| row | size | Pixmoor | us | best peer | us | vs peer | memcpy us | vs memcpy |\n"
                    << "|---|---|---|--:|---|--:|--:|--:|--:|\n";
                header = true;
            }
            const Variant* peer = BestPeer(row);
            for (const Variant& v : row.pixmoor) {
                out << "| " << row.name << " | " << row.size << " | " << v.label << " | ";
                if (!v.measured) {
                    out << (v.failed ? "DID NOT RUN" : "not set up") << " | | | | | " << v.why << " |\n";
                    continue;
                }
                out << Micros(v.seconds) << " | " << (peer ? peer->label : "-") << " | "
                    << (peer ? Micros(peer->seconds) : "-") << " | " << VersusPeer(v, peer) << " | "
                    << (row.memcpyLimit.measured ? Micros(row.memcpyLimit.seconds) : "-") << " | "
                    << VersusMemcpy(v, row) << " |\n";
            }
            if (!row.note.empty()) notes.insert(row.name + ": " + row.note);
        }
        for (const std::string& note : notes) out << "\n- " << note;
        if (!notes.empty()) out << "\n";
    }
}

void WriteJson(std::ostream& out, const RowList& rows, const RunFacts& facts) {
    out << "{\n  \"date\": " << JsonString(facts.date) << ",\n  \"processor\": " << JsonString(facts.processor)
        << ",\n  \"selected_tier\": " << JsonString(facts.selectedTier) << ",\n  \"time\": \"processor time\""
        << ",\n  \"min_seconds\": " << facts.minSeconds << ",\n  \"repetitions\": " << facts.repetitions
        << ",\n  \"rows\": [";
    bool first = true;
    for (const Row& row : rows) {
        if (!AnyMeasured(row)) continue;
        out << (first ? "\n" : ",\n");
        first = false;
        const Variant* peer = BestPeer(row);
        out << "    {\"group\": " << JsonString(row.group) << ", \"name\": " << JsonString(row.name)
            << ", \"size\": " << JsonString(row.size) << ", \"output_bytes\": " << row.outputBytes;
        if (!row.note.empty()) out << ", \"note\": " << JsonString(row.note);
        out << ",\n     \"pixmoor\": [";
        for (size_t i = 0; i < row.pixmoor.size(); ++i) {
            const Variant& v = row.pixmoor[i];
            std::string entry = JsonVariant(v);
            if (v.measured) {
                entry.pop_back();
                if (peer) entry += ", \"vs_best_peer\": " + Ratio(peer->seconds / v.seconds);
                if (row.memcpyLimit.measured) entry += ", \"vs_memcpy\": " + Ratio(v.seconds / row.memcpyLimit.seconds);
                entry += "}";
            }
            out << (i ? ",\n       " : "") << entry;
        }
        out << "],\n     \"peers\": [";
        for (size_t i = 0; i < row.peers.size(); ++i) out << (i ? ", " : "") << JsonVariant(row.peers[i]);
        out << "],\n     \"best_peer\": " << (peer ? JsonString(peer->label) : "null")
            << ",\n     \"memcpy\": " << JsonVariant(row.memcpyLimit) << "}";
    }
    out << "\n  ]\n}\n";
}

// The variant that stands for a row where one must: the selected tier (a
// pair's "selected" variant, or a primitive's entry of the tier selection
// picks), else the first.
const Variant& Headline(const Row& row, const std::string& selectedTier) {
    for (const Variant& v : row.pixmoor)
        if (v.label.rfind("selected", 0) == 0 || v.label == selectedTier) return v;
    return row.pixmoor.front();
}

// Chart data, drawn by chart.gp; chart-counts.gp tells it how many bars.
// Peers: one bar per row of the largest frames that has a peer (and each
// fixed size pair), from the row's headline variant.  Memcpy: the primitive
// and mirror rows of the largest frames, one column per tier.
void WriteChartData(const RowList& rows, const std::string& selectedTier, const std::string& dir) {
    std::ofstream peers(dir + "/chart-peers.tsv");
    std::ofstream limit(dir + "/chart-memcpy.tsv");
    peers << "row\tvs_best_peer\n";
    limit << "row\tpx\tm6\ta6\tw7\n";
    const std::string largest = SizeLabel(kFrameSizes[2].width, kFrameSizes[2].height);
    int peerRows = 0, limitRows = 0;
    for (const Row& row : rows) {
        bool largestFrame = row.size.rfind(largest, 0) == 0;
        bool fixedPair = InSummary(row) && !largestFrame;
        const Variant* peer = BestPeer(row);
        const Variant* headline = row.pixmoor.empty() ? nullptr : &Headline(row, selectedTier);
        if ((largestFrame || fixedPair) && peer && headline && headline->measured) {
            std::string label = row.name + (row.group == "size" ? " " + row.size : "");
            peers << '"' << label << "\"\t" << Ratio(peer->seconds / headline->seconds) << "\n";
            ++peerRows;
        }
        if (largestFrame && (row.group == "primitive" || row.group == "mirror") && row.memcpyLimit.measured) {
            limit << '"' << row.name << '"';
            for (const char* tier : {"px", "m6", "a6", "w7"}) {
                std::string value = "NaN";
                for (const Variant& v : row.pixmoor)
                    if (v.label == tier && v.measured) value = Ratio(v.seconds / row.memcpyLimit.seconds);
                limit << '\t' << value;
            }
            limit << "\n";
            ++limitRows;
        }
    }
    std::ofstream(dir + "/chart-counts.gp") << "peer_rows = " << peerRows << "\nmemcpy_rows = " << limitRows << "\n";
}

}  // namespace

int WriteReport(const RowList& rows, const RunFacts& facts, const std::string& dir) {
    std::ostringstream table;
    WriteTable(table, rows, facts, false);
    std::cout << table.str();
    std::ofstream(dir + "/report.md") << table.str();
    std::ofstream summary(dir + "/summary.md");
    WriteTable(summary, rows, facts, true);
    std::ofstream json(dir + "/report.json");
    WriteJson(json, rows, facts);
    WriteChartData(rows, facts.selectedTier, dir);
    int failures = 0;
    for (const Row& row : rows) {
        for (const Variant& v : row.pixmoor) failures += v.failed;
        for (const Variant& v : row.peers) failures += v.failed;
        failures += row.memcpyLimit.failed;
    }
    return failures;
}

}  // namespace bench
