# Makes the plain comments of a header Doxygen's.
s|^( *)// |\1/// |
s|([;,{]) +// |\1 ///< |
