# Makes FOLDER the complete program folder: the program PROGRAM, the dictionary's server SERVER with its
# file DICTIONARY, and what is delivered beside them from the source tree FROM. Files that belong there
# no longer are removed.
cmake_minimum_required(VERSION 3.25)
# What is not at the same place in the source tree, by its name in the folder.
set(wanted)
foreach(built ${PROGRAM} ${SERVER} ${DICTIONARY})
    get_filename_component(name ${built} NAME)
    set(source_of_${name} ${built})
    list(APPEND wanted ${name})
endforeach()
set(notice czech.dict.txt) # whose the words are: beside the file that is made of them
set(source_of_${notice} ${FROM}/predictor/data/NOTICE)
list(APPEND wanted ${notice})
foreach(part data sound help)
    file(GLOB_RECURSE files RELATIVE ${FROM} ${FROM}/${part}/*)
    list(APPEND wanted ${files})
endforeach()
list(APPEND wanted comfort.ini)

file(MAKE_DIRECTORY ${FOLDER})
file(GLOB_RECURSE present RELATIVE ${FOLDER} ${FOLDER}/*)
foreach(file IN LISTS present)
    if(NOT file IN_LIST wanted)
        file(REMOVE ${FOLDER}/${file})
    endif()
endforeach()

foreach(file IN LISTS wanted)
    if(source_of_${file})
        file(COPY_FILE ${source_of_${file}} ${FOLDER}/${file} ONLY_IF_DIFFERENT)
    else()
        get_filename_component(target_folder ${FOLDER}/${file} DIRECTORY)
        file(COPY ${FROM}/${file} DESTINATION ${target_folder})
    endif()
endforeach()
