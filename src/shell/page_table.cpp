#include "shell/page_table.h"

#include "pages/axes_conv_page.h"
#include "pages/mech_offsets_page.h"
#include "pages/win_color_page.h"

namespace wk {

namespace {

template <typename Page>
std::unique_ptr<KestelPage> Make(TKestelMainWind& mainWind) {
    return std::make_unique<Page>(mainWind);
}

// clang-format off
const std::array<PageEntry, kPageCount> kPages{{
    {"MacParTabSheet",      "Machine Parameters", "KestelGenConf_MacPar",       nullptr,           18,  true,  PageRefresh::OnEntry},
    {"SysParTabSheet",      "System Parameters",  "KestelGenConf_SysParam",     nullptr,           19,  true,  PageRefresh::OnEntry},
    {"InitTabSheet",        "Init",               "KestelGenConf_Init",         nullptr,           20,  true,  PageRefresh::OnEntry},
    {"MecOffTabSheet",      "Mechanical Offsets", "KestelGenConf_MecOff",       &Make<TMecOffPage>, 21, true,  PageRefresh::OnEntry},
    {"ControllerTabSheet",  "Controller",         "KestelGenConf_Controller",   nullptr,           22,  true,  PageRefresh::OnEntry},
    {"NumPointsTabSheet",   "Number of pts.",     "KestelElemPar_NumPts",       nullptr,           23,  true,  PageRefresh::OnEntry},
    {"SoundsTabSheet",      "Sounds",             "KestelOther_Sounds",         nullptr,           26,  true,  PageRefresh::OnEntry},
    {"WinColorTabSheet",    "Windows Colors",     "KestelOther_WindowsColor",   &Make<TWinColorPage>, 28,  true,  PageRefresh::OnEntryAndChange},
    {"DirectoriesTabSheet", "Directories",        "KestelOther_Directories",    nullptr,           30,  true,  PageRefresh::Never},
    {"AxesConvTabSheet",    "Axes Convention",    "KestelOther_AxesConvention", &Make<TAxesConvPage>, 32,  false, PageRefresh::OnChange},
    {"VolcompTabSheet",     "Volcomp",            "KestelGenConf_Volcomp",      nullptr,           127, true,  PageRefresh::OnEntry},
}};
// clang-format on

}  // namespace

const std::array<PageEntry, kPageCount>& PageTable() {
    return kPages;
}

}  // namespace wk
