#pragma once

#include <array>
#include <cstdint>

namespace norvex {

/// Cutting cycles whose technology has the same parameters; bits, so that a parameter can name its families.
enum Family : std::uint32_t {
    kMilling = 1,
    kDrilling = 2,
    kTapping = 4,
    kReaming = 8,
    kBoring = 16,
    kTurning = 32,
    kGrooving = 64,
    kThreadTurning = 128,
    kProbing = 256,
    kDeburring = 512,
    kHoleMaking = kDrilling | kTapping | kReaming | kBoring,
    kOnTheLathe = kTurning | kGrooving | kThreadTurning,
    kEveryFamily = 1023
};

struct CuttingCycle {
    std::int16_t id;
    const char* name;
    int type;
    Family family;
};

namespace cycle {
inline constexpr std::int16_t kFaceMilling = 401;
inline constexpr std::int16_t kPocketRoughing = 402;
inline constexpr std::int16_t kWallFinishing = 403;
inline constexpr std::int16_t kFloorFinishing = 404;
inline constexpr std::int16_t kSlotMilling = 405;
inline constexpr std::int16_t kSpotDrilling = 601;
inline constexpr std::int16_t kDrilling = 602;
inline constexpr std::int16_t kPeckDrilling = 603;
inline constexpr std::int16_t kCountersinking = 604;
inline constexpr std::int16_t kTapping = 801;
inline constexpr std::int16_t kReaming = 802;
inline constexpr std::int16_t kBoring = 803;
}  // namespace cycle

/// By type: 4 milling, 6 drilling, 8 hole finishing, 43 turning, 45 grooving, 49 parting, 50 threading on the
/// lathe, 101 probing, 104 deburring.
inline constexpr std::array kCuttingCycles{
    CuttingCycle{cycle::kFaceMilling, "Face milling", 4, kMilling},
    CuttingCycle{cycle::kPocketRoughing, "Pocket roughing", 4, kMilling},
    CuttingCycle{cycle::kWallFinishing, "Wall finishing", 4, kMilling},
    CuttingCycle{cycle::kFloorFinishing, "Floor finishing", 4, kMilling},
    CuttingCycle{cycle::kSlotMilling, "Slot milling", 4, kMilling},
    CuttingCycle{cycle::kSpotDrilling, "Spot drilling", 6, kDrilling},
    CuttingCycle{cycle::kDrilling, "Drilling", 6, kDrilling},
    CuttingCycle{cycle::kPeckDrilling, "Peck drilling", 6, kDrilling},
    CuttingCycle{cycle::kCountersinking, "Countersinking", 6, kDrilling},
    CuttingCycle{cycle::kTapping, "Tapping", 8, kTapping},
    CuttingCycle{cycle::kReaming, "Reaming", 8, kReaming},
    CuttingCycle{cycle::kBoring, "Boring", 8, kBoring},
    CuttingCycle{4301, "Face turning", 43, kTurning},
    CuttingCycle{4302, "Rough turning", 43, kTurning},
    CuttingCycle{4303, "Finish turning", 43, kTurning},
    CuttingCycle{4501, "Grooving", 45, kGrooving},
    CuttingCycle{4901, "Parting off", 49, kGrooving},
    CuttingCycle{5001, "Thread turning", 50, kThreadTurning},
    CuttingCycle{10101, "Probing a bore", 101, kProbing},
    CuttingCycle{10401, "Deburring", 104, kDeburring},
};

}  // namespace norvex
