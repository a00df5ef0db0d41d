# The headers of the contract become sources of the target that implements them, so that moc reads
# them there. For targets of this tree, of a tree around it and of one that finds it installed.
function(technology_implements_platform target)
  get_target_property(headers Technology::platform TECHNOLOGY_HEADERS)
  target_sources(${target} PRIVATE ${headers})
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
endfunction()
