// Without a user a window is worked by a person, but there is no person at a dialog in memory.
#include "res/resource.h"
#include "ui/dialog.h"
#include <gtest/gtest.h>

namespace {

class Unshown : public ui::Dialog {
public:
  Unshown() : Dialog(IDD_ATTEXT) {}
  void onInit() override { ADD_FAILURE() << "nothing may happen"; }
};

TEST(Nobody, ToAnswerIsAClearError) {
  for (const ui::DialogUserSource source :
       {ui::DialogUserSource{}, +[]() -> ui::DialogUser* { return nullptr; }}) {
    ui::setDialogUserSource(source);
    try {
      Unshown().doModal();
      FAIL();
    } catch (const ui::DialogError& error) {
      EXPECT_STREQ(error.what(),
                   "The dialog \"Extract of attributes\" cannot be shown: nobody is there to answer it.");
    }
  }
  ui::setDialogUserSource(nullptr);
}

} // namespace
