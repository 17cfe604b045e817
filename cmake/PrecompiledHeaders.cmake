# The headers that most files include are compiled once for all floors and once for all tests,
# which takes a third off a build from nothing. Sources still include what they use: compilers
# other than GCC, and builds through ccache (which keeps more without them), do without.
set(precompiled_default OFF)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT CMAKE_CXX_COMPILER_LAUNCHER MATCHES ccache)
    set(precompiled_default ON)
endif()
option(TAGWRIGHT_PRECOMPILED_HEADERS "Compile common headers once" ${precompiled_default})

# tagwright_precompiles(target headers...): what other targets can share.
function(tagwright_precompiles target)
    if(TAGWRIGHT_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# tagwright_shares_precompiled(target from)
function(tagwright_shares_precompiled target from)
    if(TAGWRIGHT_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${from})
    endif()
endfunction()
