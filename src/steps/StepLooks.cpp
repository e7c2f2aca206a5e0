#include "steps/StepLooks.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "settings/NumberOptions.h"
#include "steps/StepColumns.h"

namespace pellmark {

namespace {

/// How rows of one source look; the colours are settings.
struct SourceLook {
    TechnologySource source;
    const char* name;  ///< in English
    const NumberOption& back;
    const NumberOption& fore;
};

constexpr SourceLook kLooks[] = {
    {TechnologySource::CalcoraComputed, "Calcora computed", option::kTechSourceCalcoraComputedBackColor,
     option::kTechSourceCalcoraComputedForeColor},
    {TechnologySource::SfdbCalculated, "SFDB calculated", option::kTechSourceSFDBCalculatedBackColor,
     option::kTechSourceSFDBCalculatedForeColor},
    {TechnologySource::File, "File", option::kTechSourceFileBackColor, option::kTechSourceFileForeColor},
    {TechnologySource::DbStep, "DB step", option::kTechSourceDBStepBackColor,
     option::kTechSourceDBStepForeColor},
    {TechnologySource::DbDefaults, "DB defaults", option::kTechSourceDBDefaultsBackColor,
     option::kTechSourceDBDefaultsForeColor},
    {TechnologySource::User, "User", option::kTechSourceUserBackColor, option::kTechSourceUserForecolor},
};

/// A source in the language and the colours of this moment.
struct Paint {
    std::string name;
    Color back = 0;
    Color fore = 0;
};

/// Room for the text in the grid's font: generous for Latin letters, twice that for wide ones.
Twips widthOf(const std::string& text) {
    constexpr Twips kLetter = 120;
    constexpr Twips kMargin = 180;
    Twips width = kMargin;
    for (const char16_t unit : toUtf16(text))
        width += unit < 0x1100 ? kLetter : 2 * kLetter;
    return width;
}

class Painter {
  public:
    Painter(cQDLExtSettings& settings, Texts& texts) : settings_(settings), texts_(texts) {}

    /// Reads each source's colours once, and only where the source occurs.
    const Paint& paintOf(TechnologySource source) {
        const auto [at, isNew] = paints_.try_emplace(source);
        if (!isNew) return at->second;
        const auto* const look = std::find_if(std::begin(kLooks), std::end(kLooks),
                                              [&](const SourceLook& each) { return each.source == source; });
        if (look == std::end(kLooks)) return at->second = paintOf(TechnologySource::DbStep);
        return at->second = {texts_.GetString(look->name),
                             static_cast<Color>(settings_.orDefault(look->back)),
                             static_cast<Color>(settings_.orDefault(look->fore))};
    }

  private:
    cQDLExtSettings& settings_;
    Texts& texts_;
    std::map<TechnologySource, Paint> paints_;
};

}  // namespace

void decorateSteps(Grid& grid, ProcessStepStore& store, cQDLExtSettings& settings, Texts& texts) {
    std::vector<std::string> ids;
    for (int row = grid.fixedRows(); row < grid.rows(); ++row)
        ids.push_back(grid.rowData(row));
    if (ids.empty()) return;
    const std::vector<TechnologySource> sources = store.technologySources(ids);
    const int fixedCol = grid.colIndex(kFixedColumn);
    const Grid::RedrawOff off(grid);
    Painter painter(settings, texts);
    Twips widest = 0;
    for (std::size_t i = 0; i < sources.size(); ++i) {
        // The host may have changed the list while it was asked.
        const int row = grid.findRow(ids[i]);
        const Paint& paint = painter.paintOf(sources[i]);
        for (int col = 0; col < grid.cols(); ++col) {
            grid.setBackColor(row, col, paint.back);
            grid.setForeColor(row, col, paint.fore);
        }
        grid.setText(row, fixedCol, paint.name);
        widest = std::max(widest, widthOf(paint.name));
    }
    grid.setColWidth(fixedCol, widest);
}

}  // namespace pellmark
