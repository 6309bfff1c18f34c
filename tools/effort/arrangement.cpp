// SPDX-License-Identifier: MIT
#include "tools/effort/arrangement.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <random>
#include <string_view>
#include <vector>

#include "tools/effort/routes.h"

namespace taviro::effort {

namespace {

constexpr std::wstring_view ALPHABET = L"aábcčdďeéěfghiíjklmnňoópqrřsštťuúůvwxyýzž";
constexpr int32_t CODE_BACKSPACE = 8;
constexpr int32_t CODE_ENTER = 13;
constexpr int TRIES = 400000;
constexpr double FIRST_HEAT = 0.05;  // tilts a character that a change for the worse may cost
constexpr double LAST_HEAT = 0.00002;

// What a cell in the upper rows stands for; 0 for one that the counts cannot know.
wchar_t CharacterOf(const MapCell& Cell) {
    if (Cell.Caption == L"mezera") return L' ';
    if (Cell.Caption == L"čárka") return L',';
    return Cell.Caption.size() == 1 ? Cell.Caption.front() : L'\0';
}

size_t AlphabetPlace(const MapCell& Cell) {
    const auto nAt = ALPHABET.find(CharacterOf(Cell));
    return std::min(nAt, ALPHABET.size());
}

constexpr double ERRORS = 0.02;     // of the characters are taken back
constexpr double LINE_ENDS = 0.01;  // so many follow

double ShareOf(const MapCell& Cell, const LetterCounts& Counts) {
    if (Cell.Code == CODE_BACKSPACE) return ERRORS;
    if (Cell.Code == CODE_ENTER) return LINE_ENDS;
    const auto it = Counts.Single.find(CharacterOf(Cell));
    return it == Counts.Single.end() ? 0 : it->second;
}

struct Block {
    std::vector<CellPlace> Places;              // row by row
    std::vector<std::vector<double>> Tilts;     // from place to place
    std::vector<MapCell> Cells;                 // all cells of the block
    std::vector<std::vector<double>> Together;  // share of two cells in a row, both orders
    std::vector<double> Shares;                 // of the cells
};

Block BlockOf(const MapGrid& Grid, int32_t nRows, const LetterCounts& Counts) {
    Block All;
    const Routes Ways(Grid, {});
    for (const CellPlace Place : Ways.Cells()) {
        if (Place.nRow > nRows) continue;
        All.Places.push_back(Place);
        All.Cells.push_back(*Grid.Cell(Place.nColumn, Place.nRow));
    }
    for (const CellPlace From : All.Places) {
        const auto Distances = Ways.Distances(From);
        All.Tilts.emplace_back();
        for (const CellPlace To : All.Places)
            All.Tilts.back().push_back(Distances[Routes::Index(To)]);
    }
    const auto ShareInARow = [&](const MapCell& First, const MapCell& Second) {
        if (First.Code == CODE_BACKSPACE || Second.Code == CODE_BACKSPACE) {
            return ShareOf(First, Counts) * ShareOf(Second, Counts);
        }
        const auto it = Counts.InARow.find({CharacterOf(First), CharacterOf(Second)});
        return it == Counts.InARow.end() ? 0.0 : it->second;
    };
    for (const MapCell& First : All.Cells) {
        All.Shares.push_back(ShareOf(First, Counts));
        All.Together.emplace_back();
        for (const MapCell& Second : All.Cells)
            All.Together.back().push_back(ShareInARow(First, Second) + ShareInARow(Second, First));
    }
    return All;
}

// What one place further from the beginning counts, in tilts: decides between mirror images, of
// which the one with its frequent letters further up is better for scanning.
constexpr double LATE = 0.001;

// At[place] is the number of the cell that stands there.
double TiltsOf(const Block& All, const std::vector<size_t>& At) {
    double dSum = 0;
    for (size_t n = 0; n < At.size(); ++n) {
        for (size_t m = 0; m < n; ++m)
            dSum += All.Tilts[n][m] * All.Together[At[n]][At[m]];
    }
    return dSum;
}

double CostOf(const Block& All, const std::vector<size_t>& At) {
    double dLate = 0;
    for (size_t n = 0; n < At.size(); ++n)
        dLate += All.Shares[At[n]] * static_cast<double>(n);
    return TiltsOf(All, At) + LATE * dLate;
}

// Puts each row but its first cell into the order of the alphabet; signs go last.
void SortRows(const Block& All, std::vector<size_t>& At) {
    size_t nBegin = 0;
    while (nBegin < At.size()) {
        size_t nEnd = nBegin;
        while (nEnd < At.size() && All.Places[nEnd].nRow == All.Places[nBegin].nRow)
            ++nEnd;
        const auto Begin = At.begin() + static_cast<std::ptrdiff_t>(nBegin) + 1;
        const auto End = At.begin() + static_cast<std::ptrdiff_t>(nEnd);
        std::sort(Begin, End, [&](size_t a, size_t b) {
            const auto nA = AlphabetPlace(All.Cells[a]);
            const auto nB = AlphabetPlace(All.Cells[b]);
            return nA != nB ? nA < nB : a < b;
        });
        nBegin = nEnd;
    }
}

// The more frequent cell gets the earlier place, or the one with fewer tilts from the first.
std::vector<size_t> ByShare(const Block& All, bool bNear) {
    std::vector<size_t> Cells(All.Cells.size());
    std::iota(Cells.begin(), Cells.end(), size_t{0});
    std::vector<size_t> Places = Cells;
    std::stable_sort(Cells.begin(), Cells.end(),
                     [&](size_t a, size_t b) { return All.Shares[a] > All.Shares[b]; });
    if (bNear) {
        std::stable_sort(Places.begin(), Places.end(),
                         [&](size_t a, size_t b) { return All.Tilts[0][a] < All.Tilts[0][b]; });
    }
    std::vector<size_t> At(Cells.size());
    for (size_t n = 0; n < Cells.size(); ++n)
        At[Places[n]] = Cells[n];
    return At;
}

class Annealing {
  public:
    Annealing(const Block& All, bool bReadable, uint32_t nSeed)
        : m_All(All), m_bReadable(bReadable), m_Random(nSeed) {}

    std::vector<size_t> Run();

  private:
    size_t Below(size_t nEnd) { return m_Random() % nEnd; }
    double Share() { return static_cast<double>(m_Random()) / 4294967296.0; }
    std::vector<size_t> Changed(std::vector<size_t> At);

    const Block& m_All;
    bool m_bReadable;
    std::mt19937 m_Random;
};

// Two cells change places; to be readable, not those of the first column.
std::vector<size_t> Annealing::Changed(std::vector<size_t> At) {
    const auto MayChange = [&](size_t n, size_t m) {
        const CellPlace& A = m_All.Places[n];
        const CellPlace& B = m_All.Places[m];
        if (!m_bReadable) return n != m;
        return A.nRow != B.nRow && A.nColumn != 1 && B.nColumn != 1;
    };
    size_t nFirst = 0;
    size_t nSecond = 0;
    while (!MayChange(nFirst, nSecond)) {
        nFirst = Below(At.size());
        nSecond = Below(At.size());
    }
    std::swap(At[nFirst], At[nSecond]);
    if (m_bReadable) SortRows(m_All, At);
    return At;
}

std::vector<size_t> Annealing::Run() {
    std::vector<size_t> At(m_All.Places.size());
    std::iota(At.begin(), At.end(), size_t{0});
    if (m_bReadable) SortRows(m_All, At);
    double dCost = CostOf(m_All, At);
    std::vector<size_t> Best = At;
    double dBest = dCost;
    for (int n = 0; n < TRIES; ++n) {
        const double dHeat = FIRST_HEAT * std::pow(LAST_HEAT / FIRST_HEAT, n / double(TRIES));
        std::vector<size_t> Next = Changed(At);
        const double dNext = CostOf(m_All, Next);
        if (dNext > dCost && Share() >= std::exp((dCost - dNext) / dHeat)) continue;
        At = std::move(Next);
        dCost = dNext;
        if (dCost < dBest) {
            dBest = dCost;
            Best = At;
        }
    }
    return Best;
}

}  // namespace

void Arrange(MapGrid& Grid, int32_t nRows, Order Wanted, const LetterCounts& Counts,
             uint32_t nSeed) {
    const Block All = BlockOf(Grid, nRows, Counts);
    std::vector<size_t> At;
    if (Wanted == Order::Frequency || Wanted == Order::Near) {
        At = ByShare(All, Wanted == Order::Near);
    } else {
        At = Annealing(All, Wanted == Order::Readable, nSeed).Run();
    }
    for (size_t n = 0; n < At.size(); ++n)
        *Grid.Cell(All.Places[n].nColumn, All.Places[n].nRow) = All.Cells[At[n]];
}

double ExpectedTilts(const MapGrid& Grid, const LetterCounts& Counts) {
    const Block All = BlockOf(Grid, MAP_ROWS, Counts);
    std::vector<size_t> At(All.Places.size());
    std::iota(At.begin(), At.end(), size_t{0});
    return TiltsOf(All, At);
}

}  // namespace taviro::effort
