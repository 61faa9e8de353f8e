# SPDX-License-Identifier: GPL-2.0-or-later
# NEWS, at the root, is where a release's date and notes are written, once.
# reelmoor_read_news() turns it into what the package shows of it: the
# latest release (which must be the project's version), the <releases> of
# the metainfo and the Debian changelog.

# The day of the week of a date, as Debian's changelog writes it (Sakamoto's
# method: the months' offsets, years counted from March).
function(_reelmoor_weekday year month day out)
  set(offsets 0 3 2 5 0 3 5 1 4 6 2 4)
  math(EXPR index "${month} - 1")
  list(GET offsets ${index} offset)
  if(month LESS 3)
    math(EXPR year "${year} - 1")
  endif()
  math(EXPR weekday "(${year} + ${year} / 4 - ${year} / 100 + ${year} / 400 + ${offset} + ${day}) % 7")
  set(names Sun Mon Tue Wed Thu Fri Sat)
  list(GET names ${weekday} name)
  set(${out} ${name} PARENT_SCOPE)
endfunction()

# Items of the release notes collected so far, as metainfo list items and as
# changelog lines.
macro(_reelmoor_news_flush_item)
  if(NOT item STREQUAL "")
    string(REPLACE "&" "&amp;" xml_item "${item}")
    string(REPLACE "<" "&lt;" xml_item "${xml_item}")
    string(REPLACE ">" "&gt;" xml_item "${xml_item}")
    string(APPEND release_xml "          <li>${xml_item}</li>\n")
    set(item "")
  endif()
endmacro()

macro(_reelmoor_news_flush_release)
  _reelmoor_news_flush_item()
  if(NOT version STREQUAL "")
    if(release_xml STREQUAL "")
      message(FATAL_ERROR "${news}: the release ${version} has no notes")
    endif()
    string(APPEND xml
      "    <release version=\"${version}\" date=\"${date}\">\n"
      "      <description>\n        <ul>\n${release_xml}        </ul>\n      </description>\n"
      "    </release>\n")
    string(REGEX MATCHALL "[0-9]+" ymd "${date}")
    list(GET ymd 0 year)
    list(GET ymd 1 month)
    list(GET ymd 2 day)
    # Leading zeros would make math() read octal.
    math(EXPR month_number "1${month} - 100")
    math(EXPR day_number "1${day} - 100")
    _reelmoor_weekday(${year} ${month_number} ${day_number} weekday)
    list(GET month_names ${month_number} month_name)
    string(APPEND changelog
      "reelmoor (${version}) unstable; urgency=medium\n\n${release_text}\n"
      " -- ${maintainer}  ${weekday}, ${day} ${month_name} ${year} 00:00:00 +0000\n\n")
  endif()
  set(release_xml "")
  set(release_text "")
endmacro()

# Reads NEWS and sets, in the caller's scope, <prefix>_VERSION and
# <prefix>_DATE (the latest release), <prefix>_RELEASES_XML and
# <prefix>_CHANGELOG (signed by <maintainer>).
function(reelmoor_read_news news maintainer prefix)
  file(READ "${news}" text)
  # Semicolons and brackets would split or join CMake's list items.
  string(REPLACE ";" "@semicolon@" text "${text}")
  string(REPLACE "[" "@open@" text "${text}")
  string(REPLACE "]" "@close@" text "${text}")
  string(REPLACE "\n" ";" lines "${text}")

  set(month_names "" Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
  set(heading "^reelmoor ([0-9]+\\.[0-9]+\\.[0-9]+) \\(([0-9][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9])\\)$")
  set(versions "")
  set(version "")
  set(item "")
  set(release_xml "")
  set(release_text "")
  set(xml "")
  set(changelog "")
  set(number 0)
  foreach(line IN LISTS lines)
    math(EXPR number "${number} + 1")
    if(line MATCHES "${heading}")
      _reelmoor_news_flush_release()
      set(version ${CMAKE_MATCH_1})
      set(date ${CMAKE_MATCH_2})
      if(version IN_LIST versions)
        message(FATAL_ERROR "${news}:${number}: a second entry for ${version}")
      endif()
      if(versions STREQUAL "")
        set(latest_date ${date})
      endif()
      list(APPEND versions ${version})
    elseif(version STREQUAL "" OR line STREQUAL "")
      # The words above the first release, and blank lines.
    elseif(line MATCHES "^  \\* (.+)$")
      _reelmoor_news_flush_item()
      set(item "${CMAKE_MATCH_1}")
      string(APPEND release_text "${line}\n")
    elseif(line MATCHES "^    ([^ ].*)$" AND NOT item STREQUAL "")
      string(APPEND item " ${CMAKE_MATCH_1}")
      string(APPEND release_text "${line}\n")
    else()
      message(FATAL_ERROR "${news}:${number}: neither a release heading, nor a \"  * \" item, "
        "nor its continuation indented by four spaces: ${line}")
    endif()
  endforeach()
  _reelmoor_news_flush_release()
  if(versions STREQUAL "")
    message(FATAL_ERROR "${news} has no release heading \"reelmoor VERSION (YYYY-MM-DD)\"")
  endif()

  foreach(var xml changelog)
    string(REPLACE "@semicolon@" ";" ${var} "${${var}}")
    string(REPLACE "@open@" "[" ${var} "${${var}}")
    string(REPLACE "@close@" "]" ${var} "${${var}}")
  endforeach()
  # One entry ends in its signature line and a blank line; the file in that line.
  string(REGEX REPLACE "\n\n$" "\n" changelog "${changelog}")
  list(GET versions 0 latest_version)
  set(${prefix}_VERSION ${latest_version} PARENT_SCOPE)
  set(${prefix}_DATE ${latest_date} PARENT_SCOPE)
  set(${prefix}_RELEASES_XML "${xml}" PARENT_SCOPE)
  set(${prefix}_CHANGELOG "${changelog}" PARENT_SCOPE)
endfunction()
