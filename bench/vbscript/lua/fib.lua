-- Recursive calls: fib(25) (fib.vbs).
local function fib(n)
  if n < 2 then
    return n
  else
    return fib(n - 1) + fib(n - 2)
  end
end
local r
local function bench() r = fib(25) end
return bench
