#include <QTest>
#include <QTimer>

#include "DesktopModalForm.h"
#include "Testing.h"

TEST(ModalFormTest, AsksBeforeItEnds) {
  TDesktopModalForm form;
  std::vector<bool> asked;
  form.OnCloseQuery = [&](bool ok) {
    asked.push_back(ok);
    return asked.size() > 2;
  };
  QTimer::singleShot(0, [&] {
    form.Close(true);
    QTest::keyClick(&form, Qt::Key_Escape);
    form.close();
  });
  EXPECT_FALSE(form.ShowModal());
  EXPECT_EQ(asked, (std::vector{true, false, false}));
}
