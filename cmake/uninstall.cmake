# Removes what `cmake --install` put down, by its manifest (-DMANIFEST=FILE):
# every file, then every folder left empty below the prefix that the files
# share, so that nothing of the install remains; the prefix itself stays.
if(NOT EXISTS "${MANIFEST}")
  message(FATAL_ERROR "No ${MANIFEST}: nothing was installed from this build")
endif()
file(STRINGS "${MANIFEST}" files)
if(NOT files)
  return()
endif()

# The deepest folder above every file.
list(GET files 0 prefix)
get_filename_component(prefix "${prefix}" DIRECTORY)
foreach(file IN LISTS files)
  string(FIND "${file}/" "${prefix}/" at)
  while(NOT at EQUAL 0)
    get_filename_component(prefix "${prefix}" DIRECTORY)
    string(FIND "${file}/" "${prefix}/" at)
  endwhile()
endforeach()

set(folders "")
foreach(file IN LISTS files)
  if(EXISTS "${file}" OR IS_SYMLINK "${file}")
    file(REMOVE "${file}")
  endif()
  get_filename_component(folder "${file}" DIRECTORY)
  list(APPEND folders "${folder}")
endforeach()

# From each file's folder up to the prefix, while empty. Deeper folders come
# first, so that a parent is looked at after its children.
list(REMOVE_DUPLICATES folders)
list(SORT folders ORDER DESCENDING)
foreach(folder IN LISTS folders)
  while(NOT folder STREQUAL prefix AND IS_DIRECTORY "${folder}")
    file(GLOB left "${folder}/*" "${folder}/.*")
    if(left)
      break()
    endif()
    file(REMOVE_RECURSE "${folder}")
    get_filename_component(folder "${folder}" DIRECTORY)
  endwhile()
endforeach()
