#pragma once

#include <array>
#include <cstdint>

/// The sample data's figures. Tapping drills follow ISO 2306 (metric) and the 75 % thread of the usual inch
/// charts; speeds and feeds are the starting values of the common handbooks for stable set-ups.
namespace norvex::seed {

struct MaterialClass {
    char letter;  ///< ISO 513
    const char* name;
    const char* materials;  ///< separated by "|"
};

inline constexpr std::array kMaterialClasses{
    MaterialClass{
        'P', "P - Steel",
        "S235JR (1.0038)|C45 (1.0503)|16MnCr5 (1.7131)|42CrMo4 (1.7225)|11SMn30 (1.0715)|100Cr6 (1.3505)|"
        "AISI 1018|AISI 4140"},
    MaterialClass{'M', "M - Stainless steel",
                  "X5CrNi18-10 (1.4301)|X2CrNiMo17-12-2 (1.4404)|X6CrNiMoTi17-12-2 (1.4571)|"
                  "X2CrNiMoN22-5-3 (1.4462)|AISI 316L"},
    MaterialClass{'K', "K - Cast iron", "EN-GJL-200|EN-GJL-250|EN-GJS-400-15|EN-GJS-600-3|EN-GJV-400"},
    MaterialClass{'N', "N - Non-ferrous metal",
                  "EN AW-6082|EN AW-7075|EN AW-2024|AlSi10Mg|CuZn39Pb3|Cu-ETP|POM-C|AL 6061-T6"},
    MaterialClass{'S', "S - Heat-resistant alloy",
                  "Ti-6Al-4V (Grade 5)|Ti Grade 2|Inconel 718|Inconel 625|Stellite 6"},
    MaterialClass{'H', "H - Hardened steel",
                  "X153CrMoV12 58 HRC|X40CrMoV5-1 52 HRC|100Cr6 62 HRC|HS6-5-2 64 HRC"},
};

/// Starting values per material class, metric: cutting speeds in m/min, feeds in mm.
struct CuttingData {
    char letter;
    const char* material;  ///< as process names say it
    double drillSpeed;     ///< solid carbide drill
    double drillFeed;      ///< per revolution, as a share of the diameter
    double millSpeed;      ///< solid carbide end mill
    double millFeed;       ///< per tooth, as a share of the diameter
    double faceSpeed;      ///< indexable face mill
    double faceFeed;       ///< per tooth
    double reamSpeed;      ///< solid carbide reamer
    double tapSpeed;       ///< coated high-speed steel
    double turnSpeed;      ///< indexable insert
    double turnFeed;       ///< per revolution
    const char* coolant;
};

inline constexpr std::array kCuttingData{
    CuttingData{'P', "steel", 90, 0.020, 160, 0.0060, 220, 0.20, 20, 12, 220, 0.25, "emulsion"},
    CuttingData{'M', "stainless steel", 50, 0.015, 90, 0.0050, 140, 0.18, 12, 8, 150, 0.20, "emulsion"},
    CuttingData{'K', "cast iron", 100, 0.025, 140, 0.0070, 200, 0.25, 20, 15, 200, 0.30, "dry"},
    CuttingData{'N', "aluminium", 220, 0.030, 400, 0.0080, 800, 0.20, 40, 20, 500, 0.25, "emulsion"},
    CuttingData{'S', "titanium", 30, 0.012, 50, 0.0045, 45, 0.12, 8, 4, 45, 0.15, "high pressure"},
    CuttingData{'H', "hardened steel", 30, 0.010, 80, 0.0040, 110, 0.10, 8, 3, 100, 0.10, "air"},
};

struct Thread {
    const char* name;
    double diameter;
    double pitch;
    double tappingDrill;
};

inline constexpr std::array kMetricThreads{
    Thread{"M3", 3, 0.5, 2.5},     Thread{"M4", 4, 0.7, 3.3},    Thread{"M5", 5, 0.8, 4.2},
    Thread{"M6", 6, 1.0, 5.0},     Thread{"M8", 8, 1.25, 6.8},   Thread{"M10", 10, 1.5, 8.5},
    Thread{"M12", 12, 1.75, 10.2}, Thread{"M14", 14, 2.0, 12.0}, Thread{"M16", 16, 2.0, 14.0},
    Thread{"M18", 18, 2.5, 15.5},  Thread{"M20", 20, 2.5, 17.5}, Thread{"M22", 22, 2.5, 19.5},
    Thread{"M24", 24, 3.0, 21.0},
};

inline constexpr std::array kInchThreads{
    Thread{"#4-40 UNC", 0.112, 1.0 / 40, 0.0890},  Thread{"#6-32 UNC", 0.138, 1.0 / 32, 0.1065},
    Thread{"#8-32 UNC", 0.164, 1.0 / 32, 0.1360},  Thread{"#10-24 UNC", 0.190, 1.0 / 24, 0.1495},
    Thread{"1/4-20 UNC", 0.250, 1.0 / 20, 0.2010}, Thread{"5/16-18 UNC", 0.3125, 1.0 / 18, 0.2570},
    Thread{"3/8-16 UNC", 0.375, 1.0 / 16, 0.3125}, Thread{"7/16-14 UNC", 0.4375, 1.0 / 14, 0.3680},
    Thread{"1/2-13 UNC", 0.500, 1.0 / 13, 0.4219}, Thread{"5/8-11 UNC", 0.625, 1.0 / 11, 0.5312},
    Thread{"3/4-10 UNC", 0.750, 1.0 / 10, 0.6562},
};

/// A range of sizes with the tool that its processes are laid out for.
struct SizeRange {
    const char* name;
    double from;
    double to;
    double tool;
};

inline constexpr std::array kMetricRanges{
    SizeRange{"3 - 6 mm", 3, 6, 5},
    SizeRange{"6 - 12 mm", 6, 12, 10},
    SizeRange{"12 - 25 mm", 12, 25, 16},
};

inline constexpr std::array kInchRanges{
    SizeRange{"1/8 - 1/4 in", 0.125, 0.25, 0.1875},
    SizeRange{"1/4 - 1/2 in", 0.25, 0.5, 0.375},
    SizeRange{"1/2 - 1 in", 0.5, 1, 0.625},
};

}  // namespace norvex::seed
