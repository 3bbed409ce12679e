# The variable table of ORXSrvBasic is kept in its compact notation (ORXSrvVariableTable.txt) and
# expanded at build time by a small generator into the source of its rows.
add_executable(ORXSrvVariableTableGen "${PROJECT_SOURCE_DIR}/tools/generators/ORXSrvVariableTableGen.cpp")

set(ORXSRV_VARIABLE_TABLE "${PROJECT_SOURCE_DIR}/ORXSrvSimServices/ORXSrvFsm.m/src/ORXSrvVariableTable.txt")
set(ORXSRV_VARIABLE_ROWS "${PROJECT_BINARY_DIR}/generated/ORXSrvVariableRows.cpp")
add_custom_command(OUTPUT "${ORXSRV_VARIABLE_ROWS}"
  COMMAND "${CMAKE_COMMAND}" -E make_directory "${PROJECT_BINARY_DIR}/generated"
  COMMAND ORXSrvVariableTableGen "${ORXSRV_VARIABLE_TABLE}" "${ORXSRV_VARIABLE_ROWS}"
  DEPENDS ORXSrvVariableTableGen "${ORXSRV_VARIABLE_TABLE}"
  COMMENT "Expanding the variable table"
  VERBATIM)
target_sources(ORXSrvBasic PRIVATE "${ORXSRV_VARIABLE_ROWS}")
