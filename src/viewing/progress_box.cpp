// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/progress_box.h"

#include "toolkit/prompts.h"

#include <QCoreApplication>
#include <QProgressBar>

#include <limits>

using namespace Qt::StringLiterals;

namespace ostrand::viewing {
namespace {

/// So often is the screen painted, and the user listened to.
constexpr int listenMs = 30;
constexpr int widthInCharacters = 48;

} // namespace

ProgressBox::ProgressBox(QWidget* owner, int patience)
    : m_box(owner),
      m_patience(patience)
{
    m_box.setObjectName(u"progressBox"_s);
    m_box.setWindowTitle(toolkit::programTitle());
    m_box.setWindowModality(Qt::ApplicationModal);
    m_box.setAutoReset(false);
    m_box.setAutoClose(false);
    m_box.setMinimumDuration(std::numeric_limits<int>::max());
    m_box.setMinimumWidth(m_box.fontMetrics().averageCharWidth() * widthInCharacters);
    m_box.findChild<QProgressBar*>()->setAccessibleName(QProgressDialog::tr("Progress"));
    QObject::connect(&m_box, &QDialog::rejected, &m_box, &QProgressDialog::cancel);
    m_clock.start();
}

bool ProgressBox::step(const QString& text, int done, int total)
{
    const qint64 now = m_clock.elapsed();
    const bool isDue = !m_box.isVisible() || now - m_listenedAt >= listenMs;
    if (now < m_patience || m_box.wasCanceled() || !isDue)
        return !m_box.wasCanceled();
    m_box.setLabelText(text);
    m_box.setRange(0, total);
    m_box.setValue(done);
    m_box.show();
    QCoreApplication::processEvents();
    m_listenedAt = m_clock.elapsed();
    return !m_box.wasCanceled();
}

} // namespace ostrand::viewing
