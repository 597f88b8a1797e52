// The A and B series of the two-series modes are drop-downs of the loaded data sets; a
// choice is issued as the same SET line of the data set's number.
#include <QComboBox>
#include <QPushButton>

#include "desktop_fixture.h"
#include "gui/field_editors.h"

namespace tidemark::testing_support {
namespace {

using DataSetFieldsTest = DesktopTest;

TEST_F(DataSetFieldsTest, SeriesFieldsOfferTheLoadedDataSetsInEveryTwoSeriesMode) {
  read_example("lh_24h_10min.dat");
  read_example("gh_overnight_5min.dat");
  for (const char* mode : {"Correlation", "Concordance", "X_ApEn"}) {
    trigger(std::string("Mode/") + mode);
    gui::FieldEditors* editors = window().mode_panel()->editors();
    ASSERT_NE(editors, nullptr) << mode;
    for (const char* label : {"A Series", "B Series"}) {
      auto* box = qobject_cast<QComboBox*>(editors->editor(label));
      ASSERT_NE(box, nullptr) << mode << " " << label;
      ASSERT_EQ(box->count(), 2) << mode;
      EXPECT_TRUE(box->itemText(0).startsWith("1  ")) << box->itemText(0).toStdString();
      EXPECT_TRUE(box->itemText(0).contains("lh_24h_10min.dat"));
      EXPECT_TRUE(box->itemText(1).contains("gh_overnight_5min.dat"));
    }
    // The defaults: A is data set 1, B data set 2.
    EXPECT_EQ(qobject_cast<QComboBox*>(editors->editor("A Series"))->currentIndex(), 0);
    EXPECT_EQ(qobject_cast<QComboBox*>(editors->editor("B Series"))->currentIndex(), 1);
  }
}

TEST_F(DataSetFieldsTest, AChosenDataSetIsIssuedAsItsNumberBeforeTheButtonsCommand) {
  read_example("lh_24h_10min.dat");
  read_example("gh_overnight_5min.dat");
  trigger("Mode/Correlation");
  auto* b = qobject_cast<QComboBox*>(window().mode_panel()->editors()->editor("B Series"));
  ASSERT_NE(b, nullptr);
  b->setCurrentIndex(0);
  window().mode_panel()->findChild<QPushButton*>("Calculate")->click();
  settle();
  const auto all = commands();
  ASSERT_GE(all.size(), 2u);
  EXPECT_EQ(all[all.size() - 2], "SET B Series = 1");
  EXPECT_EQ(all.back(), "CORR_CALCULATE");
  // A third data set read later joins the list; the choice stays.
  read_example("subject07_lh.dat");
  EXPECT_EQ(b->count(), 3);
  EXPECT_EQ(b->currentIndex(), 0);
}

TEST_F(DataSetFieldsTest, ANumberBeyondTheLoadedSetsIsShownAsNotLoaded) {
  read_example("lh_24h_10min.dat");
  trigger("Mode/X_ApEn");
  auto* b = qobject_cast<QComboBox*>(window().mode_panel()->editors()->editor("B Series"));
  ASSERT_NE(b, nullptr);
  ASSERT_EQ(b->count(), 2);  // data set 1, and the default 2 that is not loaded yet
  EXPECT_EQ(b->currentText().toStdString(), "2  (not loaded)");
  read_example("gh_overnight_5min.dat");
  ASSERT_EQ(b->count(), 2);
  EXPECT_TRUE(b->currentText().contains("gh_overnight_5min.dat"));
}

}  // namespace
}  // namespace tidemark::testing_support
