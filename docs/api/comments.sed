# SPDX-License-Identifier: MIT
# Makes the plain comments of a header Doxygen's.
s|^// SPDX-.*||
s|^( *)// |\1/// |
s|([;,{]) +// |\1 ///< |
