#include "shell/kestel_page.h"

namespace wk {

KestelPage::KestelPage(TKestelMainWind& mainWind) : mainWind_(mainWind) {}

}  // namespace wk
