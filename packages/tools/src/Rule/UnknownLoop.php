<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Path;
use Zorvel\Syntax\Tag;
use Zorvel\Tools\Template\Includes;
use Zorvel\Tools\Template\Template;

/** A path from a loop that is not there, neither here nor round an include of the template. */
final readonly class UnknownLoop extends TagRule
{
    public function __construct(private Includes $includes) {}

    protected function messageFor(Tag $tag, Template $template): ?string
    {
        $loops = array_filter(array_map(fn(string $path): ?string => new Path($path)->loop, $tag->paths()), is_string(...));
        $loop = $loops === [] ? null : array_find($loops, fn(string $name): bool => !in_array($name, $this->namesAround($tag, $template), true));

        return match (true) {
            $loop === null, $this->includes->mayBeNamedByData($template) => null,
            $loop === '' => 'No loop is round this tag: write it inside {dynamic path}…{/dynamic}',
            default => "No loop round this tag is named \"$loop\": write {dynamic $loop,path}…{/dynamic} round it, or end the path without *",
        };
    }

    /** @return list<string> the names of the loops, and '' when there is one at all */
    private function namesAround(Tag $tag, Template $template): array
    {
        $loops = [...$template->nesting->loopsAround($tag), ...$this->includes->loopsAround($template)];

        return $loops === [] ? [] : ['', ...array_map(fn(Tag $loop): string => $loop->loopName(), $loops)];
    }
}
