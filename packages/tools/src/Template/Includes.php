<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;

/** Which template includes which, over all templates of the folders. They are read when this is first asked for. */
final class Includes
{
    /** @var ?array<string, list<array{Template, Tag}>> the including tags by the included file */
    private ?array $places = null;

    public function __construct(private readonly Folders $folders) {}

    /** Whether another template includes this one. */
    public function has(Template $template): bool
    {
        return $this->placesOf((string) realpath($template->file)) !== [];
    }

    /** @return list<Tag> the loops inside which other templates include this one, directly or not */
    public function loopsAround(Template $template): array
    {
        $loops = [];
        $files = [(string) realpath($template->file)];
        for ($next = 0; $next < count($files); ++$next) {
            foreach ($this->placesOf($files[$next]) as [$includer, $tag]) {
                array_push($loops, ...$includer->nesting->loopsAround($tag));
                array_push($files, ...array_diff([(string) realpath($includer->file)], $files));
            }
        }

        return $loops;
    }

    /** @return list<array{Template, Tag}> */
    private function placesOf(string $file): array
    {
        $this->places ??= $this->findPlaces();

        return $this->places[$file] ?? [];
    }

    /** @return array<string, list<array{Template, Tag}>> */
    private function findPlaces(): array
    {
        $places = [];
        foreach (array_unique(array_merge(...array_map($this->folders->templatesAt(...), $this->folders->paths))) as $file) {
            $template = Template::fromFile($file);
            foreach ($this->includedBy($template) as $included => $tag) {
                $places[$included][] = [$template, $tag];
            }
        }

        return $places;
    }

    /** @return iterable<string, Tag> the including tags by the files */
    private function includedBy(Template $template): iterable
    {
        $folders = $this->folders->around($template->file);
        foreach ($template->tags as $tag) {
            $file = $tag->kind === TagKind::Include ? $folders->find($tag->parameter) : null;
            if ($file !== null) {
                yield (string) realpath($file) => $tag;
            }
        }
    }
}
