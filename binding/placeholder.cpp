// The data-binding classes are built here.
