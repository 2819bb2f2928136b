#include "UserLocale.h"

#include <QLocale>
#include <gtest/gtest.h>

TEST(UserLocale, FollowsTheDefaultLocaleAtCallTime)
{
    const QLocale saved;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(UserLocale::icuLocaleId(), "en_US");
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Switzerland));
    EXPECT_EQ(UserLocale::icuLocaleId(), "de_CH");
    QLocale::setDefault(saved);
}
