// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::index {
class frmIndex;
} // namespace ostrand::index

namespace ostrand::tour {

class Camera;

/// Looks through the register of documents, the documents of a tag and the revisions of the index,
/// and registers a document for the tag.
void tourDocuments(const Camera& camera, index::frmIndex& window);

} // namespace ostrand::tour
