-- String building: 1,000,000 pieces of "x" (concat1m.vbs).
local s
local function bench()
  local t = {}
  for i = 1, 1000000 do
    t[i] = "x"
  end
  s = table.concat(t)
end
return bench
