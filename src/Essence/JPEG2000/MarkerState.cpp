#include "Essence/JPEG2000/MarkerState.h"

#include "Essence/JPEG2000/Markers.h"

namespace Vantry { namespace Essence { namespace JPEG2000 {

namespace {

struct Step
{
    JPEG2k_STATE from;
    unsigned char marker;
    JPEG2k_STATE to;
};

// The steps from one state to another.
Step const STEPS[] = {
    {STATE_START, SOC, STATE_IMAGE_SIZE},
    {STATE_IMAGE_SIZE, SIZ, STATE_MAIN_HEADER},
    {STATE_MAIN_HEADER, SOT, STATE_TILE_PART_HEADER},
    {STATE_TILE_PART_HEADER, SOD, STATE_TILE_DATA},
    {STATE_TILE_DATA, SOT, STATE_NEXT_TILE_PART},
    {STATE_TILE_DATA, EOC, STATE_START},
    {STATE_NEXT_TILE_PART, SOD, STATE_NEXT_TILE_PART_DATA},
    {STATE_NEXT_TILE_PART_DATA, SOT, STATE_NEXT_TILE_PART},
    {STATE_NEXT_TILE_PART_DATA, EOC, STATE_START},
};

struct Stay
{
    JPEG2k_STATE state;
    unsigned char markers[12]; // up to the first 0
};

Stay const STAYS[] = {
    {STATE_MAIN_HEADER, {COD, COC, TLM, PLM, QCD, QCC, RGN, POC, PPM, CRG, COM}},
    {STATE_TILE_PART_HEADER, {COD, COC, PLT, QCD, QCC, RGN, POC, PPT, COM}},
    {STATE_TILE_DATA, {SOP, EPH}},
    {STATE_NEXT_TILE_PART, {POC, PPT, PLT, COM, SOT}},
};

bool stays(JPEG2k_STATE state, unsigned char marker) noexcept
{
    for (Stay const & stay : STAYS)
        if (stay.state == state)
            for (unsigned char const known : stay.markers)
                if (known != 0 && known == marker)
                    return true;
    return false;
}

}

bool checkMarker(JPEG2k_STATE & state, unsigned char marker) noexcept
{
    for (Step const & step : STEPS)
        if (step.from == state && step.marker == marker)
        {
            state = step.to;
            return true;
        }
    return stays(state, marker);
}

}}}
